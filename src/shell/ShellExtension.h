// Registers and unregisters the handler module that adds the presets to the context menus of folders and
// drives. The module of the window program is in the folder of the program and has the same stem.
#pragma once

#include <string>

// Returns the full path of this program, with long names.
std::wstring ProgramPath();

// Returns the path of the handler module of the program at this path: the path up to its last dot, which may
// be in a folder's name, and ".dll".
std::wstring ModulePathOf(const std::wstring& programPath);

class ShellExtension {
public:
    // name is the handler's key below the ContextMenuHandlers keys, classId its class in registry form with
    // braces. Does not access the registry.
    ShellExtension(const std::wstring& name, const std::wstring& classId);

    // The same with a module at another path.
    ShellExtension(const std::wstring& name, const std::wstring& classId, const std::wstring& modulePath);

    // Returns whether the module is registered for folders and for drives.
    bool IsRegistered() const;

    // Run regsvr32 with elevated rights and wait for it. Return whether it could be started, which does not
    // mean that it succeeded: see IsRegistered.
    bool Register() const;
    bool Unregister() const;

    const std::wstring Name;
    const std::wstring ClassId;
    const std::wstring ModulePath;
};
