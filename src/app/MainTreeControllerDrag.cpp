// Drag and drop in the tree, which only ever moves presets. Every handler leaves its message to the tree,
// too, so that selection works as usual. The tree's own handling of a click may swallow the button-up, hence
// the way out of Pending by a move without the button.

#include <cstdlib>
#include <utility>

#include "app/MainTreeController.h"
#include "winlib/controls/TreeView.h"

bool MainTreeController::HandleLButtonDown(int x, int y, WPARAM) {
    if (DragState != DragStates::Idle)
        return false;
    const HTREEITEM item = TreeWindow.HitTest(x, y).hItem;
    if (ItemKindOf(item) != ItemKind::Preset)
        return false;
    DragItem = item;
    DragStart = {x, y};
    HotSpot = {x - TreeWindow.LabelRect(item).left, 0};
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
        TreeWindow.ClearMark();
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
        target != nullptr && (target == DragItem || TreeWindow.Next(TVGN_NEXT, target) == DragItem);
    if (changesNothing)
        TreeWindow.ClearMark();
    else
        TreeWindow.MarkBelow(LastVisibleOf(target));
}

HTREEITEM MainTreeController::DropTarget(int x, int y) const {
    return PresetItemOf(TreeWindow.HitTest(x, y).hItem);
}

HTREEITEM MainTreeController::LastVisibleOf(HTREEITEM presetItem) const {
    if (!TreeWindow.IsExpanded(presetItem))
        return presetItem;
    const std::vector<HTREEITEM> children = TreeWindow.Children(presetItem);
    return children.empty() ? presetItem : children.back();
}

void MainTreeController::Drop(HTREEITEM dragged, int x, int y) {
    const HTREEITEM target = DropTarget(x, y);
    if (target == nullptr || target == dragged)
        return;
    MoveBehind(dragged, target);
    std::vector<uint32_t> ids;
    for (const HTREEITEM item : TreeWindow.Children(TVI_ROOT))
        ids.push_back(ItemId(item));
    Command->ReorderPresets(ids);
}

// Items stay where they are and their contents travel, by exchanges of neighbours. The walk goes down first;
// when it meets the bottom and not the target, the target lies above, and the walk turns.
void MainTreeController::MoveBehind(HTREEITEM dragged, HTREEITEM target) const {
    UINT direction = TVGN_NEXT;
    HTREEITEM next = TreeWindow.Next(direction, dragged);
    while (next != target) {
        if (next != nullptr) {
            WinLib::Controls::TreeView::SwapItems(TreeWindow, dragged, next);
            dragged = next;
        } else if (direction == TVGN_NEXT) {
            direction = TVGN_PREVIOUS;
        } else {
            return;
        }
        next = TreeWindow.Next(direction, dragged);
    }
    if (direction == TVGN_NEXT)
        WinLib::Controls::TreeView::SwapItems(TreeWindow, dragged, target);
}
