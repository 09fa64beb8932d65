// A second top-level window of the test's thread, active while it lives. As with a window of another program,
// the main window loses the keyboard to it and gets it again at its end.
#pragma once

#include "winlib/Windows.h"

class OtherWindow {
public:
    explicit OtherWindow(HWND mainWindow)
        : mainWindow_(mainWindow),
          window_(CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 10, 10, nullptr, nullptr,
                                  GetModuleHandleW(nullptr), nullptr)) {
        SetActiveWindow(window_);
    }
    OtherWindow(const OtherWindow&) = delete;
    OtherWindow& operator=(const OtherWindow&) = delete;
    ~OtherWindow() {
        SetActiveWindow(mainWindow_);
        DestroyWindow(window_);
    }

private:
    const HWND mainWindow_;
    const HWND window_;
};
