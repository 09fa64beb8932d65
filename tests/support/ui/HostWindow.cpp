#include "support/ui/HostWindow.h"
#include "support/ui/CommonControls.h"

#include <commctrl.h>

HostWindow::HostWindow() : Application(GetModuleHandleW(nullptr), L"", SW_SHOW) {
    Ui::InitCommonControls();
    // #32770 is the class of dialogs.
    Handle = CreateWindowExW(WS_EX_CONTROLPARENT, L"#32770", L"Host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0,
                             640, 480, nullptr, nullptr, Application.Instance, nullptr);
}

HostWindow::~HostWindow() {
    DestroyWindow(Handle);
    // Handled, not thrown away: a window of another host that must be painted would come again and again.
    MSG left;
    while (PeekMessageW(&left, nullptr, 0, 0, PM_REMOVE))
        DispatchMessageW(&left);
}

HWND HostWindow::Add(const wchar_t* className, const wchar_t* text, DWORD style, const RECT& place) const {
    return CreateWindowExW(0, className, text, style | WS_CHILD | WS_VISIBLE, place.left, place.top,
                           place.right - place.left, place.bottom - place.top, Handle, nullptr,
                           Application.Instance, nullptr);
}
