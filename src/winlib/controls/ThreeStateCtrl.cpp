#include "winlib/controls/ThreeStateCtrl.h"

#include "winlib/controls/TreeView.h"

namespace WinLib::Controls::TreeView {
namespace {

void SetItemState(HWND tree, HTREEITEM item, ItemState state) {
    TVITEMW change = {};
    change.mask = TVIF_STATE | TVIF_HANDLE;
    change.hItem = item;
    change.stateMask = TVIS_STATEIMAGEMASK;
    change.state = INDEXTOSTATEIMAGEMASK(static_cast<UINT>(state));
    SendMessageW(tree, TVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&change));
}

TVHITTESTINFO HitTest(HWND tree, int x, int y) {
    TVHITTESTINFO hit = {};
    hit.pt = {x, y};
    SendMessageW(tree, TVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit));
    return hit;
}

UINT StateOf(HWND tree, HTREEITEM item, UINT mask) {
    TVITEMW query = {};
    query.mask = TVIF_STATE | TVIF_HANDLE;
    query.hItem = item;
    query.stateMask = mask;
    SendMessageW(tree, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&query));
    return query.state & mask;
}

}  // namespace

ItemState GetItemState(HWND tree, HTREEITEM item) {
    return static_cast<ItemState>(StateOf(tree, item, TVIS_STATEIMAGEMASK) >> 12);
}

void ThreeStateCtrl::OnAttach() {
    tree_ = Handle;
    // A tree with TVS_CHECKBOXES has created an image list of its own, which it never destroys.
    const UniqueHandle<HIMAGELIST> replaced(reinterpret_cast<HIMAGELIST>(
        SendMessageW(tree_, TVM_SETIMAGELIST, TVSIL_STATE, reinterpret_cast<LPARAM>(StateImages.get()))));
}

void ThreeStateCtrl::Toggle(HTREEITEM item) {
    if (item == nullptr)
        return;
    const bool checked = GetItemState(tree_, item) == ItemState::Checked;
    SetBranch(item, checked ? ItemState::Unchecked : ItemState::Checked);
    UpdateParent(NextItem(tree_, TVGN_PARENT, item));
}

void ThreeStateCtrl::SetBranch(HTREEITEM item, ItemState state) {
    SetItemState(tree_, item, state);
    for (HTREEITEM child = NextItem(tree_, TVGN_CHILD, item); child != nullptr;
         child = NextItem(tree_, TVGN_NEXT, child))
        SetBranch(child, state);
}

void ThreeStateCtrl::UpdateParent(HTREEITEM item) {
    for (; item != nullptr; item = NextItem(tree_, TVGN_PARENT, item)) {
        HTREEITEM child = NextItem(tree_, TVGN_CHILD, item);
        ItemState common = GetItemState(tree_, child);
        while ((child = NextItem(tree_, TVGN_NEXT, child)) != nullptr) {
            if (GetItemState(tree_, child) != common) {
                common = ItemState::Mixed;
                break;
            }
        }
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
    Toggle(NextItem(tree_, TVGN_CARET, nullptr));
    return true;
}

bool ThreeStateCtrl::HandleLButtonDoubleClick(int x, int y, WPARAM) {
    const TVHITTESTINFO hit = HitTest(tree_, x, y);
    if (hit.flags & TVHT_ONITEMLABEL)
        Toggle(hit.hItem);
    return (hit.flags & (TVHT_ONITEMLABEL | TVHT_ONITEMSTATEICON)) != 0;
}

void ThreeStateCtrl::Press(int x, int y) {
    if (GetFocus() != tree_)
        SetFocus(tree_);
    const TVHITTESTINFO hit = HitTest(tree_, x, y);
    const auto item = reinterpret_cast<LPARAM>(hit.hItem);
    if (hit.flags & TVHT_ONITEM)
        SendMessageW(tree_, TVM_SELECTITEM, TVGN_CARET, item);
    if (hit.flags & TVHT_ONITEMBUTTON) {
        const bool expanded = StateOf(tree_, hit.hItem, TVIS_EXPANDED) != 0;
        SendMessageW(tree_, TVM_EXPAND, expanded ? TVE_COLLAPSE : TVE_EXPAND, item);
    }
    if (hit.flags & TVHT_ONITEMSTATEICON)
        Toggle(hit.hItem);
}

}  // namespace WinLib::Controls::TreeView
