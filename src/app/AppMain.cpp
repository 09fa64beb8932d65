#include "app/AppMain.h"

#include <string>
#include <vector>

#include "app/Arguments.h"
#include "listmaker/ListMakerWithUI.h"
#include "settings/MainSettings.h"
#include "winlib/Application.h"
#include "winlib/Exception.h"
#include "winlib/Windows.h"

#include <commctrl.h>

namespace {

void InitCommonControls() {
    for (const DWORD classes :
         {ICC_TREEVIEW_CLASSES, ICC_LISTVIEW_CLASSES, ICC_PROGRESS_CLASS, ICC_BAR_CLASSES}) {
        const INITCOMMONCONTROLSEX request = {sizeof(request), classes};
        if (!InitCommonControlsEx(&request))
            throw WinLib::Exception(L"InitCommonControlsEx failed.");
    }
}

void RunBatch(const std::vector<std::wstring>& arguments) {
    MainSettings settings;
    const Preset* preset = settings.FindPreset(arguments[0]);
    if (arguments.size() < 2 || preset == nullptr)
        return;
    ListMakerWithUI job(nullptr, *preset, arguments[1]);
    job.Start();
}

int Run() {
    InitCommonControls();
    static const std::vector<std::wstring> Arguments =
        SplitArguments(WinLib::Application::Current()->CommandLine);
    if (!Arguments.empty())
        RunBatch(Arguments);
    return 0;
}

void ShowError(const wchar_t* text) {
    MessageBoxW(nullptr, text, L"Error", MB_OK | MB_ICONEXCLAMATION);
}

}  // namespace

int AppMain() {
    try {
        return Run();
    } catch (const WinLib::Exception& exception) {
        ShowError(exception.Message.c_str());
    } catch (...) {
        ShowError(L"An unidentified error has occured.");
    }
    return -1;
}
