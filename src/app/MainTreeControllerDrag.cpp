// Drag and drop in the tree, which only ever moves presets. Every handler leaves its message to the tree,
// too, so that selection works as usual. The tree's own handling of a click may swallow the button-up, hence
// the way out of Pending by a move without the button.

#include <cstdlib>
#include <cstring>
#include <utility>

#include "app/MainTreeController.h"
#include "winlib/controls/TreeView.h"

bool MainTreeController::HandleLButtonDown(int x, int y, WPARAM) {
    if (DragState != DragStates::Idle)
        return false;
    const HTREEITEM item = HitTest(x, y).hItem;
    if (ItemKindOf(item) != ItemKind::Preset)
        return false;
    // The message takes the item in the rectangle's own memory.
    RECT label = {};
    std::memcpy(&label, &item, sizeof(HTREEITEM));
    SendMessageW(TreeWindow, TVM_GETITEMRECT, TRUE, reinterpret_cast<LPARAM>(&label));
    DragItem = item;
    DragStart = {x, y};
    HotSpot = {x - label.left, 0};
    SetCapture(TreeWindow);
    DragState = DragStates::Pending;
    return false;
}

bool MainTreeController::HandleMouseMove(int x, int y, WPARAM keys) {
    switch (DragState) {
        case DragStates::Idle:
            break;
        case DragStates::Pending:
            if (std::abs(x - DragStart.x) >= DragThreshold.x ||
                std::abs(y - DragStart.y) >= DragThreshold.y) {
                BeginDrag(x, y);
                MarkDropTarget(x, y);
            } else if (!(keys & MK_LBUTTON)) {
                HandleLButtonUp(x, y, keys);
            }
            break;
        case DragStates::Dragging:
            MoveDragImage(x, y);
            MarkDropTarget(x, y);
            break;
    }
    return false;
}

bool MainTreeController::HandleLButtonUp(int x, int y, WPARAM) {
    switch (DragState) {
        case DragStates::Idle:
            break;
        case DragStates::Pending:
            EndDrag();
            break;
        case DragStates::Dragging: {
            const HTREEITEM dragged = DragItem;
            EndDrag();
            Drop(dragged, x, y);
            break;
        }
    }
    return false;
}

void MainTreeController::BeginDrag(int x, int y) {
    UpdateWindow(TreeWindow);
    ImageList_BeginDrag(DragImages.get(), 0, HotSpot.x, HotSpot.y);
    ImageList_DragEnter(TreeWindow, x, y);
    // The tree's own handling of the click has let go of it.
    SetCapture(TreeWindow);
    DragState = DragStates::Dragging;
}

// The state changes first, since to let go of the mouse ends a drag, too.
void MainTreeController::EndDrag() {
    const bool wasDragging = std::exchange(DragState, DragStates::Idle) == DragStates::Dragging;
    DragItem = nullptr;
    if (wasDragging) {
        ImageList_DragLeave(TreeWindow);
        ImageList_EndDrag();
    }
    if (TreeWindow != nullptr && GetCapture() == TreeWindow)
        ReleaseCapture();
    if (wasDragging)
        ClearMark();
}

void MainTreeController::MoveDragImage(int x, int y) const {
    RECT client;
    GetClientRect(TreeWindow, &client);
    if (PtInRect(&client, {x, y})) {
        ImageList_DragShowNolock(TRUE);
        ImageList_DragMove(x, y);
    } else {
        ImageList_DragShowNolock(FALSE);
    }
}

void MainTreeController::MarkDropTarget(int x, int y) const {
    const HTREEITEM target = DropTarget(x, y);
    const bool changesNothing =
        target != nullptr && (target == DragItem || Neighbour(target, TVGN_NEXT) == DragItem);
    if (changesNothing)
        ClearMark();
    else
        MarkBehind(LastVisibleOf(target));
}

HTREEITEM MainTreeController::DropTarget(int x, int y) const {
    return PresetItemOf(HitTest(x, y).hItem);
}

HTREEITEM MainTreeController::LastVisibleOf(HTREEITEM presetItem) const {
    const LRESULT state =
        SendMessageW(TreeWindow, TVM_GETITEMSTATE, reinterpret_cast<WPARAM>(presetItem), TVIS_EXPANDED);
    if (presetItem == nullptr || !(state & TVIS_EXPANDED))
        return presetItem;
    HTREEITEM last = presetItem;
    for (HTREEITEM child = Neighbour(presetItem, TVGN_CHILD); child != nullptr;
         child = Neighbour(child, TVGN_NEXT))
        last = child;
    return last;
}

void MainTreeController::MarkBehind(HTREEITEM item) const {
    SendMessageW(TreeWindow, TVM_SETINSERTMARK, TRUE, reinterpret_cast<LPARAM>(item));
}

void MainTreeController::ClearMark() const {
    SendMessageW(TreeWindow, TVM_SETINSERTMARK, 0, 0);
}

TVHITTESTINFO MainTreeController::HitTest(int x, int y) const {
    TVHITTESTINFO hit = {};
    hit.pt = {x, y};
    SendMessageW(TreeWindow, TVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit));
    return hit;
}

void MainTreeController::Drop(HTREEITEM dragged, int x, int y) {
    const HTREEITEM target = DropTarget(x, y);
    if (target == nullptr || target == dragged)
        return;
    MoveBehind(dragged, target);
    std::vector<uint32_t> ids;
    for (HTREEITEM item = FirstItem(); item != nullptr; item = Neighbour(item, TVGN_NEXT))
        ids.push_back(ItemId(item));
    Command->ReorderPresets(ids);
}

// Items stay where they are and their contents travel, by exchanges of neighbours. The walk goes down first;
// when it meets the bottom and not the target, the target lies above, and the walk turns.
void MainTreeController::MoveBehind(HTREEITEM dragged, HTREEITEM target) const {
    UINT direction = TVGN_NEXT;
    HTREEITEM next = Neighbour(dragged, direction);
    while (next != target) {
        if (next != nullptr) {
            WinLib::Controls::TreeView::SwapItems(TreeWindow, dragged, next);
            dragged = next;
        } else if (direction == TVGN_NEXT) {
            direction = TVGN_PREVIOUS;
        } else {
            return;
        }
        next = Neighbour(dragged, direction);
    }
    if (direction == TVGN_NEXT)
        WinLib::Controls::TreeView::SwapItems(TreeWindow, dragged, target);
}
