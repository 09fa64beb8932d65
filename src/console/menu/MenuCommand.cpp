#include "console/menu/MenuCommand.h"

#include <string>

#include "console/Errors.h"
#include "console/Output.h"
#include "console/menu/MenuModule.h"
#include "shell/ContextMenuClass.h"
#include "shell/ShellExtension.h"
#include "winlib/RegistryKey.h"
#include "winlib/Windows.h"

namespace Console {

namespace {

constexpr wchar_t Handlers[] = L"\\shellex\\ContextMenuHandlers\\";

std::wstring ModuleKey() {
    return std::wstring(L"CLSID\\") + ContextMenuClassId + L"\\InProcServer32";
}

// Returns the default value of a key of the classes of the user or of the machine; empty if there is none.
std::wstring ClassValue(HKEY root, const std::wstring& path) {
    RegistryKey key;
    std::wstring value;
    if (RegOpenKeyExW(root, (L"Software\\Classes\\" + path).c_str(), 0, KEY_READ, key.Receive()) ==
        ERROR_SUCCESS)
        key.ReadString(L"", value);
    return value;
}

// Returns what the shell uses: the classes of the user take precedence over those of the machine.
std::wstring EffectiveValue(const std::wstring& path) {
    const std::wstring value = ClassValue(HKEY_CURRENT_USER, path);
    return value.empty() ? ClassValue(HKEY_LOCAL_MACHINE, path) : value;
}

// Class identifiers and paths are compared without regard to case.
bool AreEqual(const std::wstring& a, const std::wstring& b) {
    return CompareStringOrdinal(a.c_str(), -1, b.c_str(), -1, TRUE) == CSTR_EQUAL;
}

bool IsHandlerOf(const wchar_t* kind) {
    return AreEqual(EffectiveValue(std::wstring(kind) + Handlers + ContextMenuName), ContextMenuClassId);
}

std::wstring OwnModule() {
    const std::wstring program = ProgramPath();
    return program.substr(0, program.rfind(L'\\') + 1) + L"tamblewick.dll";
}

std::wstring Status() {
    const std::wstring module = EffectiveValue(ModuleKey());
    if (module.empty() || !IsHandlerOf(L"Directory") || !IsHandlerOf(L"Drive"))
        return L"off";
    if (!AreEqual(module, OwnModule()))
        return L"on, by another copy: " + module;
    return ClassValue(HKEY_CURRENT_USER, ModuleKey()).empty() ? L"on, for all users" : L"on, for me";
}

void ChangeForAllUsers(bool on) {
    const ShellExtension extension(ContextMenuName, ContextMenuClassId, OwnModule());
    if (!(on ? extension.Register() : extension.Unregister()))
        throw Error(ExitCode::NotWritten,
                    L"the menu for all users is not changed; it needs administrator rights");
    if (ClassValue(HKEY_LOCAL_MACHINE, ModuleKey()).empty() == on)
        throw Error(
            ExitCode::NotWritten,
            L"the menu for all users could not be changed; run 'tamblewickc menu' as an administrator");
}

void Change(const Options& arguments, bool on) {
    if (arguments.Has("all-users"))
        ChangeForAllUsers(on);
    else
        InstallModuleForUser(OwnModule(), on);
}

}  // namespace

ExitCode RunMenuStatus(const Options&) {
    Print(ToUtf8(Status()) + "\n");
    return ExitCode::Complete;
}

ExitCode RunMenuOn(const Options& arguments) {
    Change(arguments, true);
    return ExitCode::Complete;
}

ExitCode RunMenuOff(const Options& arguments) {
    Change(arguments, false);
    const std::wstring status = Status();
    if (status != L"off")
        Warn(ToUtf8(L"the menu is still " + status));
    return ExitCode::Complete;
}

}  // namespace Console
