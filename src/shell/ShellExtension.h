// Registers and removes the handler module that puts the presets into the context menus of folders and
// drives, and tells whether it is registered. The module stands beside the program with the same stem.
#pragma once

#include <string>

// Where the handler module of the program at this path must stand: the path up to its last dot, folders
// included, and ".dll".
std::wstring ModulePathOf(const std::wstring& programPath);

class ShellExtension {
public:
    // name is the handler's key below the ContextMenuHandlers keys, classId its class in registry form with
    // braces. Touches no registry.
    ShellExtension(const std::wstring& name, const std::wstring& classId);

    // Whether the registry names the module beside this program for folders and for drives.
    bool IsRegistered() const;

    // Run regsvr32 with elevated rights and wait for it. True if it could be started, which does not say that
    // it succeeded: ask IsRegistered afterwards.
    bool Register() const;
    bool Unregister() const;

    const std::wstring Name;
    const std::wstring ClassId;
    const std::wstring ModulePath;
};
