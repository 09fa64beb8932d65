// The keyboard focus of the main window. It never stays in a page that is hidden or destroyed, nor with
// "Create List..." while that is disabled: the tree gets it first.

#include "app/MainController.h"
#include "listmaker/ListMakerWithUI.h"
#include "pages/ManageController.h"
#include "pages/PropertyController.h"
#include "winlib/Focus.h"

void MainController::TakeFocusFrom(HWND control) const {
    const HWND focus = GetFocus();
    if (focus == control || IsChild(control, focus))
        WinLib::MoveFocus(TreeWindow);
}

void MainController::HidePage(HWND page) const {
    TakeFocusFrom(page);
    ShowWindow(page, SW_HIDE);
}

// Does nothing while the window is not active, which it must not become by itself; HandleFocusRestored then
// calls again.
void MainController::ReturnFocus() {
    if (!FocusLent || GetFocus() != TreeWindow || !IsWindowEnabled(CreateListButton))
        return;
    FocusLent = false;
    WinLib::MoveFocus(CreateListButton);
}

// The platform keeps the focus of an inactive dialog and restores it after this message, even if its place
// was hidden or disabled meanwhile: what comes of it is seen only later.
bool MainController::HandleActivate(WORD state) const {
    if (state != WA_INACTIVE)
        PostMessageW(Handle, FocusRestored, 0, 0);
    return false;
}

bool MainController::HandleFocusRestored() {
    const HWND focus = GetFocus();
    const bool takesKeys = IsChild(Handle, focus) && IsWindowVisible(focus) && IsWindowEnabled(focus);
    if (GetActiveWindow() == Handle && !takesKeys)
        WinLib::MoveFocus(TreeWindow);
    ReturnFocus();
    return true;
}
