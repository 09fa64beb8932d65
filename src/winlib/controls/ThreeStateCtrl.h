// A tree view with a box before each item: unchecked, checked, or mixed when the items below differ. It does
// all mouse work of the tree itself, and tells nobody about a tick: read the states when they are needed.
#pragma once

#include "winlib/Controller.h"
#include "winlib/Handles.h"

#include <commctrl.h>

namespace WinLib::Controls::TreeView {

// The state image of an item, which is its state.
enum class ItemState : UINT { Unchecked = 1, Checked = 2, Mixed = 3 };

ItemState GetItemState(HWND tree, HTREEITEM item);

class ThreeStateCtrl : public Window::Controller,
                       public Handlers::Handler<WM_LBUTTONDOWN>,
                       public Handlers::Handler<WM_RBUTTONDOWN>,
                       public Handlers::Handler<WM_KEYDOWN>,
                       public Handlers::Handler<WM_LBUTTONDBLCLK> {
public:
    // Checks an item with all below it, unless it is checked: then unchecks them. The parents follow. A null
    // item is ignored.
    void Toggle(HTREEITEM item);

    // Brings an item that has children, and its parents in turn, up to date with the states below.
    void UpdateParent(HTREEITEM item);

    void OnAttach() override;
    bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    bool HandleLButtonDown(int x, int y, WPARAM keys) override;
    bool HandleRButtonDown(int x, int y, WPARAM keys) override;
    bool HandleKeyDown(WPARAM virtualKey) override;
    bool HandleLButtonDoubleClick(int x, int y, WPARAM keys) override;

    // The pictures of the states by their number, picture 0 never shown. Set before attaching.
    UniqueHandle<HIMAGELIST> StateImages;

private:
    void SetBranch(HTREEITEM item, ItemState state);
    void Press(int x, int y);

    HWND tree_ = nullptr;
};

}  // namespace WinLib::Controls::TreeView
