// A tree view with a check box for each item: unchecked, checked, or mixed if the items below differ. It
// handles all mouse input of the tree itself and sends no notification when an item is checked; query the
// states when needed.
#pragma once

#include "winlib/Controller.h"
#include "winlib/Handles.h"
#include "winlib/controls/Tree.h"

namespace WinLib::Controls::TreeView {

// The state of an item: its state image.
enum class ItemState : UINT { Unchecked = 1, Checked = 2, Mixed = 3 };

ItemState GetItemState(HWND tree, HTREEITEM item);

class ThreeStateCtrl : public Window::Controller,
                       public Handlers::Handler<WM_LBUTTONDOWN>,
                       public Handlers::Handler<WM_RBUTTONDOWN>,
                       public Handlers::Handler<WM_KEYDOWN>,
                       public Handlers::Handler<WM_LBUTTONDBLCLK> {
public:
    // Checks an item and all items below it; unchecks them if the item is checked. Updates the parents.
    // Ignores a null item.
    void Toggle(HTREEITEM item);

    // Sets the state of an item from those of its children, then updates its parents. REQUIRES: the item has
    // children.
    void UpdateParent(HTREEITEM item);

    void OnAttach() override;
    bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    bool HandleLButtonDown(int x, int y, WPARAM keys) override;
    bool HandleRButtonDown(int x, int y, WPARAM keys) override;
    bool HandleKeyDown(WPARAM virtualKey) override;
    bool HandleLButtonDoubleClick(int x, int y, WPARAM keys) override;

    // The images of the states; the index is the state, and image 0 is not used. To be set before attaching.
    UniqueHandle<HIMAGELIST> StateImages;

private:
    void SetBranch(HTREEITEM item, ItemState state);
    void Press(int x, int y);

    Tree tree_;
};

}  // namespace WinLib::Controls::TreeView
