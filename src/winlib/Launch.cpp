#include "winlib/Launch.h"

#include "winlib/Windows.h"

#include <shellapi.h>

namespace WinLib {

std::wstring QuotePath(const std::wstring& text) {
    return L'"' + text + L'"';
}

bool Launch(const std::wstring& program, const std::wstring& arguments, const std::wstring& directory) {
    SHELLEXECUTEINFOW info = {};
    info.cbSize = sizeof(info);
    info.fMask = SEE_MASK_FLAG_NO_UI | SEE_MASK_UNICODE;
    info.lpFile = program.c_str();
    info.lpParameters = arguments.empty() ? nullptr : arguments.c_str();
    info.lpDirectory = directory.empty() ? nullptr : directory.c_str();
    info.nShow = SW_SHOWNORMAL;
    return ShellExecuteExW(&info) != FALSE;
}

}  // namespace WinLib
