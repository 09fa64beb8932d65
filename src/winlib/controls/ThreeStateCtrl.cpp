#include "winlib/controls/ThreeStateCtrl.h"

#include <algorithm>

namespace WinLib::Controls::TreeView {
namespace {

void SetItemState(const Tree& tree, HTREEITEM item, ItemState state) {
    tree.SetState(item, INDEXTOSTATEIMAGEMASK(static_cast<UINT>(state)), TVIS_STATEIMAGEMASK);
}

}  // namespace

ItemState GetItemState(HWND tree, HTREEITEM item) {
    return static_cast<ItemState>(Tree(tree).State(item, TVIS_STATEIMAGEMASK) >> 12);
}

void ThreeStateCtrl::OnAttach() {
    tree_ = Tree(Handle);
    // A tree with TVS_CHECKBOXES has created an image list of its own, which it never destroys.
    const UniqueHandle<HIMAGELIST> replaced = tree_.SetStateImages(StateImages.get());
}

void ThreeStateCtrl::Toggle(HTREEITEM item) {
    if (item == nullptr)
        return;
    const bool checked = GetItemState(tree_, item) == ItemState::Checked;
    SetBranch(item, checked ? ItemState::Unchecked : ItemState::Checked);
    UpdateParent(tree_.Parent(item));
}

void ThreeStateCtrl::SetBranch(HTREEITEM item, ItemState state) {
    SetItemState(tree_, item, state);
    for (const HTREEITEM child : tree_.Children(item))
        SetBranch(child, state);
}

void ThreeStateCtrl::UpdateParent(HTREEITEM item) {
    for (; item != nullptr; item = tree_.Parent(item)) {
        const std::vector<HTREEITEM> children = tree_.Children(item);
        const ItemState first = GetItemState(tree_, children.front());
        const bool alike = std::all_of(children.begin(), children.end(),
                                       [&](HTREEITEM child) { return GetItemState(tree_, child) == first; });
        const ItemState common = alike ? first : ItemState::Mixed;
        if (GetItemState(tree_, item) == common)
            return;
        SetItemState(tree_, item, common);
    }
}

bool ThreeStateCtrl::OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    switch (message) {
        case WM_LBUTTONDOWN:
            return Handler<WM_LBUTTONDOWN>::Dispatch(wParam, lParam, result);
        case WM_RBUTTONDOWN:
            return Handler<WM_RBUTTONDOWN>::Dispatch(wParam, lParam, result);
        case WM_KEYDOWN:
            return Handler<WM_KEYDOWN>::Dispatch(wParam, lParam, result);
        case WM_LBUTTONDBLCLK:
            return Handler<WM_LBUTTONDBLCLK>::Dispatch(wParam, lParam, result);
        default:
            return Controller::OnMessage(message, wParam, lParam, result);
    }
}

bool ThreeStateCtrl::HandleLButtonDown(int x, int y, WPARAM) {
    Press(x, y);
    return true;
}

bool ThreeStateCtrl::HandleRButtonDown(int x, int y, WPARAM) {
    Press(x, y);
    return true;
}

bool ThreeStateCtrl::HandleKeyDown(WPARAM virtualKey) {
    if (virtualKey != VK_SPACE)
        return false;
    Toggle(tree_.Caret());
    return true;
}

bool ThreeStateCtrl::HandleLButtonDoubleClick(int x, int y, WPARAM) {
    const TVHITTESTINFO hit = tree_.HitTest(x, y);
    if (hit.flags & TVHT_ONITEMLABEL)
        Toggle(hit.hItem);
    return (hit.flags & (TVHT_ONITEMLABEL | TVHT_ONITEMSTATEICON)) != 0;
}

void ThreeStateCtrl::Press(int x, int y) {
    if (GetFocus() != tree_)
        SetFocus(tree_);
    const TVHITTESTINFO hit = tree_.HitTest(x, y);
    if (hit.flags & TVHT_ONITEM)
        tree_.Select(hit.hItem);
    if (hit.flags & TVHT_ONITEMBUTTON)
        tree_.Expand(hit.hItem, !tree_.IsExpanded(hit.hItem));
    if (hit.flags & TVHT_ONITEMSTATEICON)
        Toggle(hit.hItem);
}

}  // namespace WinLib::Controls::TreeView
