// The keyboard focus of the main window. It never stays in a page that is hidden or destroyed, nor with
// "Create List..." while that is disabled: the tree gets it first. "Create List..." gets it back when its
// list is done, unless the user chooses something else in the window before.
#pragma once

#include "winlib/Windows.h"

class FocusKeeper {
public:
    // Posted to the dialog. Restored handles it.
    static constexpr UINT RestoredMessage = WM_APP + 1;

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
    // window is not active, which it must not become by itself; Restored then does it.
    void Return();

    // WM_ACTIVATE: the platform keeps the focus of an inactive dialog and restores it after this message,
    // even to a window that was hidden or disabled meanwhile. So the result is checked later, by Restored.
    void Activated(WORD state) const;
    void Restored();

private:
    HWND dialog_ = nullptr;
    HWND tree_ = nullptr;
    HWND createListButton_ = nullptr;
    bool lent_ = false;
};
