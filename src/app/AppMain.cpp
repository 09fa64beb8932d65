#include "app/AppMain.h"

#include <string>
#include <vector>

#include "app/Arguments.h"
#include "app/MainController.h"
#include "app/MessageLoop.h"
#include "listmaker/ListMakerWithUI.h"
#include "resources/resource.h"
#include "settings/MainSettings.h"
#include "winlib/Application.h"
#include "winlib/Exception.h"
#include "winlib/WindowIcon.h"
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

// After an exception: clears GWLP_USERDATA and destroys the window before its controller is destroyed.
// Clearing comes first, because WM_DESTROY would otherwise post WM_QUIT and close the error message at once.
class WindowRemover {
public:
    explicit WindowRemover(const MainController& controller) : controller_(controller) {}
    WindowRemover(const WindowRemover&) = delete;
    WindowRemover& operator=(const WindowRemover&) = delete;
    ~WindowRemover() {
        if (!IsWindow(controller_.Handle))
            return;
        SetWindowLongPtrW(controller_.Handle, GWLP_USERDATA, 0);
        DestroyWindow(controller_.Handle);
    }

private:
    const MainController& controller_;
};

int RunWindow(WinLib::Application& application) {
    WinLib::WindowIcon icon;
    MainController controller;
    const WindowRemover remover(controller);

    HWND window = nullptr;
    HINSTANCE instance = nullptr;
    WinLib::CreateModeless(application, window, controller, IDD_MAIN, nullptr, instance);

    icon.Set(window, application.Instance, IDI_PROGRAM);
    return RunMessageLoop(application);
}

int Run() {
    InitCommonControls();
    WinLib::Application& application = *WinLib::Application::Current();
    static const std::vector<std::wstring> Arguments = SplitArguments(application.CommandLine);
    if (Arguments.empty())
        return RunWindow(application);
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
