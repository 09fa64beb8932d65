#include "listmaker/Launch.h"

#include "settings/Preset.h"
#include "winlib/Windows.h"

#include <shellapi.h>

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

void OpenList(const Preset& preset, const std::wstring& outputPath) {
    switch (preset.Get(Opening::OpenMethod)) {
        case OpenMethod::Default:
            Launch(QuotePath(outputPath), L"", L"");
            break;
        case OpenMethod::Nothing:
            break;
        case OpenMethod::Custom:
            Launch(QuotePath(preset.Get(Opening::CustomProgramPath)), QuotePath(outputPath), L"");
            break;
    }
}
