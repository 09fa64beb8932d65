#include "app/FocusKeeper.h"

#include "winlib/Focus.h"

void FocusKeeper::Attach(HWND dialog, HWND tree, HWND createListButton) {
    dialog_ = dialog;
    tree_ = tree;
    createListButton_ = createListButton;
}

void FocusKeeper::TakeFrom(HWND window) const {
    const HWND focus = GetFocus();
    if (focus == window || IsChild(window, focus))
        WinLib::MoveFocus(tree_);
}

void FocusKeeper::Hide(HWND window) const {
    TakeFrom(window);
    ShowWindow(window, SW_HIDE);
}

void FocusKeeper::Lend() {
    lent_ = GetFocus() == createListButton_;
    TakeFrom(createListButton_);
}

void FocusKeeper::Return() {
    if (!lent_ || GetFocus() != tree_ || !IsWindowEnabled(createListButton_))
        return;
    lent_ = false;
    WinLib::MoveFocus(createListButton_);
}

void FocusKeeper::Activated(WORD state) const {
    if (state != WA_INACTIVE)
        PostMessageW(dialog_, RestoredMessage, 0, 0);
}

void FocusKeeper::Restored() {
    const HWND focus = GetFocus();
    const bool takesKeys = IsChild(dialog_, focus) && IsWindowVisible(focus) && IsWindowEnabled(focus);
    if (GetActiveWindow() == dialog_ && !takesKeys)
        WinLib::MoveFocus(tree_);
    Return();
}
