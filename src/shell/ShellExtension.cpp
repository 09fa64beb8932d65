#include "shell/ShellExtension.h"

#include "winlib/RegistryKey.h"
#include "winlib/Windows.h"

#include <shellapi.h>
#include <shlobj.h>

namespace {

// Class identifiers and paths are compared case-insensitively.
bool AreEqual(const std::wstring& a, const std::wstring& b) {
    return CompareStringOrdinal(a.c_str(), -1, b.c_str(), -1, TRUE) == CSTR_EQUAL;
}

// Returns whether the key's unnamed value is this text.
bool HasDefaultValue(const std::wstring& path, REGSAM access, const std::wstring& expected) {
    RegistryKey key;
    std::wstring value;
    return RegOpenKeyExW(HKEY_CLASSES_ROOT, path.c_str(), 0, access, key.Receive()) == ERROR_SUCCESS &&
           key.ReadString(L"", value) && AreEqual(value, expected);
}

// Returns whether this is a 32-bit process on a 64-bit system. A system without IsWow64Process has only one
// width.
bool IsWow64() {
    using Function = BOOL(WINAPI*)(HANDLE, BOOL*);
    const FARPROC address = GetProcAddress(GetModuleHandleW(L"kernel32"), "IsWow64Process");
    const auto isWow64Process = reinterpret_cast<Function>(reinterpret_cast<void*>(address));
    BOOL result = FALSE;
    return isWow64Process && isWow64Process(GetCurrentProcess(), &result) && result;
}

bool RunRegsvr32(const std::wstring& parameters) {
    SHELLEXECUTEINFOW info{};
    info.cbSize = sizeof(info);
    info.fMask = SEE_MASK_UNICODE | SEE_MASK_FLAG_NO_UI | SEE_MASK_NOCLOSEPROCESS;
    info.lpVerb = L"runas";
    info.lpFile = L"regsvr32.exe";
    info.lpParameters = parameters.c_str();
    info.nShow = SW_SHOWNORMAL;
    if (!ShellExecuteExW(&info))
        return false;
    // The process handle is not closed: one stays open for each call until the program ends.
    WaitForSingleObject(info.hProcess, INFINITE);
    DWORD exitCode = 1;
    GetExitCodeProcess(info.hProcess, &exitCode);
    if (exitCode == 0)
        SHChangeNotify(SHCNE_ASSOCCHANGED, SHCNF_FLUSHNOWAIT, nullptr, nullptr);
    return true;
}

}  // namespace

std::wstring ProgramPath() {
    constexpr DWORD Length = 4096;
    wchar_t path[Length] = {};
    GetModuleFileNameW(nullptr, path, Length);
    wchar_t longPath[Length] = {};
    GetLongPathNameW(path, longPath, Length);
    return longPath;
}

std::wstring ModulePathOf(const std::wstring& programPath) {
    // The last dot of the whole path, even if it is in the name of a folder.
    return programPath.substr(0, programPath.rfind(L'.')) + L".dll";
}

ShellExtension::ShellExtension(const std::wstring& name, const std::wstring& classId)
    : ShellExtension(name, classId, ModulePathOf(ProgramPath())) {}

ShellExtension::ShellExtension(const std::wstring& name, const std::wstring& classId,
                               const std::wstring& modulePath)
    : Name(name), ClassId(classId), ModulePath(modulePath) {}

bool ShellExtension::IsRegistered() const {
    const bool forFolders =
        HasDefaultValue(L"Directory\\shellex\\ContextMenuHandlers\\" + Name, KEY_READ, ClassId);
    const bool forDrives =
        HasDefaultValue(L"Drive\\shellex\\ContextMenuHandlers\\" + Name, KEY_READ, ClassId);
    const REGSAM classAccess = IsWow64() ? KEY_READ | KEY_WOW64_64KEY : KEY_READ;
    const bool asClass = HasDefaultValue(L"CLSID\\" + ClassId + L"\\InProcServer32", classAccess, ModulePath);
    return forFolders && forDrives && asClass;
}

bool ShellExtension::Register() const {
    return RunRegsvr32(L"\"/s\" \"" + ModulePath + L"\"");
}

bool ShellExtension::Unregister() const {
    return RunRegsvr32(L"\"/s\" \"/u\" \"" + ModulePath + L"\"");
}
