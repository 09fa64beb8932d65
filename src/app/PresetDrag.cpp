#include "app/PresetDrag.h"

#include <cstdlib>
#include <utility>
#include <vector>

#include "resources/resource.h"
#include "winlib/Application.h"
#include "winlib/WindowIcon.h"
#include "winlib/controls/TreeView.h"

namespace {

// A thin bar follows the cursor, not a picture of the item: the icon is cut down to the list's height.
WinLib::UniqueHandle<HIMAGELIST> MakeDragImages() {
    WinLib::UniqueHandle<HIMAGELIST> images(ImageList_Create(64, 2, ILC_MASK, 1, 4));
    const WinLib::UniqueHandle<HICON> icon =
        WinLib::LoadSmallIcon(WinLib::Application::Current()->Instance, IDI_DRAG);
    ImageList_ReplaceIcon(images.get(), -1, icon.get());
    return images;
}

}  // namespace

PresetDrag::PresetDrag()
    : DragImages(MakeDragImages()), DragThreshold{GetSystemMetrics(SM_CXDRAG), GetSystemMetrics(SM_CYDRAG)} {}

void PresetDrag::Press(HTREEITEM item, int x, int y) {
    if (DragState != DragStates::Idle)
        return;
    DragItem = item;
    DragStart = {x, y};
    HotSpot = {x - tree_.LabelRect(item).left, 0};
    SetCapture(tree_);
    DragState = DragStates::Pending;
}

bool PresetDrag::Move(int x, int y, WPARAM keys) {
    switch (DragState) {
        case DragStates::Idle:
            return false;
        case DragStates::Pending:
            if (std::abs(x - DragStart.x) >= DragThreshold.x ||
                std::abs(y - DragStart.y) >= DragThreshold.y) {
                Begin(x, y);
                return true;
            }
            // The tree's own handling of a click may have swallowed the button-up.
            if (!(keys & MK_LBUTTON))
                End();
            return false;
        case DragStates::Dragging:
            MoveImage(x, y);
            return true;
    }
    return false;
}

HTREEITEM PresetDrag::Release() {
    const HTREEITEM dragged = DragState == DragStates::Dragging ? DragItem : nullptr;
    if (DragState != DragStates::Idle)
        End();
    return dragged;
}

void PresetDrag::Begin(int x, int y) {
    UpdateWindow(tree_);
    ImageList_BeginDrag(DragImages.get(), 0, HotSpot.x, HotSpot.y);
    ImageList_DragEnter(tree_, x, y);
    // The tree's own handling of the click has released it.
    SetCapture(tree_);
    DragState = DragStates::Dragging;
}

// The state changes first, since releasing the mouse calls CaptureLost.
void PresetDrag::End() {
    const bool wasDragging = std::exchange(DragState, DragStates::Idle) == DragStates::Dragging;
    DragItem = nullptr;
    if (wasDragging) {
        ImageList_DragLeave(tree_);
        ImageList_EndDrag();
    }
    if (tree_ != nullptr && GetCapture() == tree_)
        ReleaseCapture();
    if (wasDragging)
        tree_.ClearMark();
}

void PresetDrag::EndOf(HTREEITEM item) {
    if (item != nullptr && item == DragItem)
        End();
}

void PresetDrag::CaptureLost() {
    // The tree itself releases the mouse while a press is pending.
    if (DragState == DragStates::Dragging)
        End();
}

void PresetDrag::MoveImage(int x, int y) const {
    RECT client;
    GetClientRect(tree_, &client);
    if (PtInRect(&client, {x, y})) {
        ImageList_DragShowNolock(TRUE);
        ImageList_DragMove(x, y);
    } else {
        ImageList_DragShowNolock(FALSE);
    }
}

void PresetDrag::Mark(HTREEITEM target) const {
    const bool changesNothing =
        target != nullptr && (target == DragItem || tree_.Next(TVGN_NEXT, target) == DragItem);
    if (changesNothing) {
        tree_.ClearMark();
        return;
    }
    HTREEITEM last = target;
    if (tree_.IsExpanded(target))
        for (const HTREEITEM child : tree_.Children(target))
            last = child;
    tree_.MarkBelow(last);
}

// Items stay where they are and their contents travel, by exchanges of neighbours. The walk goes down first;
// when it meets the bottom and not the target, the target is above, and the walk turns.
void PresetDrag::Drop(HTREEITEM dragged, HTREEITEM target) const {
    UINT direction = TVGN_NEXT;
    HTREEITEM next = tree_.Next(direction, dragged);
    while (next != target) {
        if (next != nullptr) {
            WinLib::Controls::TreeView::SwapItems(tree_, dragged, next);
            dragged = next;
        } else if (direction == TVGN_NEXT) {
            direction = TVGN_PREVIOUS;
        } else {
            return;
        }
        next = tree_.Next(direction, dragged);
    }
    if (direction == TVGN_NEXT)
        WinLib::Controls::TreeView::SwapItems(tree_, dragged, target);
}
