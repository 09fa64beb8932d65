// The names of all calls, in the order of their enumeration.
#include <array>

#include "FakeWin.h"

namespace FakeWin {
namespace {

constexpr const char* Names[] = {
    "GetFileAttributesW",
    "GetFileAttributesExW",
    "FindFirstFileExW",
    "FindNextFileW",
    "FindClose",
    "OpenFile",
    "WriteFile",
    "CloseFile",
    "DeleteFileW",
    "MoveFileExW",
    "GetTempPathW",
    "GetModuleFileNameW",
    "GetLongPathNameW",
    "GetTickCount",
    "Sleep",
    "GetLocalTime",
    "FileTimeToSystemTime",
    "CompareFileTime",
    "CompareStringW",
    "CharLowerW",
    "GetDateFormatW",
    "GetTimeFormatW",
    "FormatMessageW",
    "LocalFree",
    "GetModuleHandleW",
    "RegOpenKeyExW",
    "RegCreateKeyExW",
    "RegCloseKey",
    "RegQueryValueExW",
    "RegSetValueExW",
    "RegDeleteValueW",
    "RegEnumValueW",
    "RegEnumKeyExW",
    "RegQueryInfoKeyW",
    "RegDeleteKeyW",
    "ShellExecuteExW",
    "WaitForSingleObject",
    "GetExitCodeProcess",
    "CloseHandle",
    "SHChangeNotify",
    "DialogBoxParamW",
    "CreateDialogParamW",
    "GetMessageW",
    "PostMessageW",
    "MessageBoxW",
    "GetDesktopWindow",
    "LoadImageW",
    "GetFullPathNameW",
    "ReadFile",
    "CreateMutexW",
    "ReleaseMutex",
    "FindWindowW",
    "CreateFileW",
    "BCryptOpenAlgorithmProvider",
    "BCryptCreateHash",
    "BCryptHashData",
    "BCryptFinishHash",
};
static_assert(std::size(Names) == static_cast<size_t>(Call::Count));

}  // namespace

const char* NameOf(Call call) {
    return Names[static_cast<size_t>(call)];
}

}  // namespace FakeWin
