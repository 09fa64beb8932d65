// A dialog or message box as a test sees it, and its buttons.
#pragma once

#include <string>
#include <vector>

#include "winlib/Windows.h"

namespace Ui {

struct SeenDialog {
    std::wstring caption;
    std::wstring text;  // of its static controls, one after the other
    HWND owner;
};

SeenDialog ReadDialog(HWND dialog);

// Returns whether the window is a dialog or a message box.
bool IsDialog(HWND window);

// Presses the button with this id, by a posted message. The window may belong to another thread.
void PressButton(HWND dialog, WORD button);

// Returns the top-level windows of all threads.
std::vector<HWND> TopLevelWindows();

}  // namespace Ui
