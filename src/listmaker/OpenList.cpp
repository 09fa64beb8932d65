#include "listmaker/OpenList.h"

#include "settings/Preset.h"
#include "winlib/Launch.h"

void OpenList(const Preset& preset, const std::wstring& outputPath) {
    switch (preset.Get(Opening::OpenMethod)) {
        case OpenMethod::Default:
            WinLib::Launch(WinLib::QuotePath(outputPath), L"", L"");
            break;
        case OpenMethod::Nothing:
            break;
        case OpenMethod::Custom:
            WinLib::Launch(WinLib::QuotePath(preset.Get(Opening::CustomProgramPath)),
                           WinLib::QuotePath(outputPath), L"");
            break;
    }
}
