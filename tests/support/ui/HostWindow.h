// The empty top-level window in which tests put pages and controls.
#pragma once

#include "winlib/Application.h"
#include "winlib/Windows.h"

class HostWindow {
public:
    HostWindow();
    HostWindow(const HostWindow&) = delete;
    HostWindow& operator=(const HostWindow&) = delete;
    ~HostWindow();

    // A visible child of the window.
    HWND Add(const wchar_t* className, const wchar_t* text, DWORD style, const RECT& place) const;

    HWND Handle;
    WinLib::Application Application;
};
