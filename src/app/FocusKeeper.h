// The keyboard focus of the main window. It never stays in a page that is hidden or destroyed, nor with
// "Create List..." while that is disabled: the tree gets it first. "Create List..." gets it back when its
// list is done, unless the user chooses something else in the window before.
#pragma once

#include "winlib/Windows.h"

class FocusKeeper {
public:
    // The three windows must exist until the dialog is destroyed.
    void Attach(HWND dialog, HWND tree, HWND createListButton);

    // Moves the focus to the tree if it is in this window or in a child of it. Call before the window is
    // hidden, disabled or destroyed.
    void TakeFrom(HWND window) const;

    // Hides a window that may have the focus.
    void Hide(HWND window) const;

    // Takes the focus from "Create List..." for the time of its list. Call before the button is disabled.
    void Lend();

    // The user has chosen something else: the button does not get the focus back.
    void Forget() { lent_ = false; }

    // Gives the focus back to the button if it is enabled and the tree still has it. Does nothing while the
    // window is not active, which it must not become by itself; Restore then calls this again.
    void Return();

    // WM_ACTIVATE: keeps and restores the focus in place of the platform, which would restore it to a control
    // that was hidden or disabled meanwhile. Leave nothing to the platform.
    void Activated(WORD state);

    // WM_SETFOCUS of the dialog: moves the focus to the control that had it before the window became inactive
    // or minimised, or to the tree if that control cannot take it any more.
    void Restore();

private:
    HWND dialog_ = nullptr;
    HWND tree_ = nullptr;
    HWND createListButton_ = nullptr;
    HWND kept_ = nullptr;  // had the focus when the window became inactive
    bool lent_ = false;
};
