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

void FocusKeeper::Activated(WORD state) {
    if (state == WA_INACTIVE)
        kept_ = GetFocus();
    else
        Restore();
}

void FocusKeeper::Restore() {
    if (IsChild(dialog_, kept_) && IsWindowVisible(kept_) && IsWindowEnabled(kept_))
        SetFocus(kept_);
    else
        WinLib::MoveFocus(tree_);
    Return();
}
