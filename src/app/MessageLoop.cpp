#include "app/MessageLoop.h"

#include "winlib/Application.h"
#include "winlib/Win32Error.h"
#include "winlib/Windows.h"

namespace {

// TranslateAcceleratorW only says whether the table has the key; what its window answered is lost in it.
bool IsAccelerator(WinLib::Application& application, MSG& message) {
    application.AcceleratorRefused = false;
    return application.Accelerators != nullptr &&
           TranslateAcceleratorW(application.AcceleratorWindow, application.Accelerators, &message) != 0 &&
           !application.AcceleratorRefused;
}

bool IsForDialog(const WinLib::Application& application, MSG& message) {
    // By index, since a dialog may open further ones while it handles the message.
    for (size_t i = 0; i < application.Dialogs.size(); i++)
        if (IsDialogMessageW(application.Dialogs[i], &message))
            return true;
    return false;
}

}  // namespace

int RunMessageLoop(WinLib::Application& application) {
    for (;;) {
        MSG message;
        const BOOL received = GetMessageW(&message, nullptr, 0, 0);
        if (received == 0)
            return static_cast<int>(message.wParam);
        if (received == -1)
            throw WinLib::Win32Error();
        if (IsAccelerator(application, message) || IsForDialog(application, message))
            continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}
