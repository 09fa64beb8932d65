// The drag of an item to another place among the top-level items of a tree, with its image and the mark of
// the drop. Does not know which items may be dragged: the owner passes the mouse events on and says which
// item is under the mouse. The owner also leaves each event to the tree, so that selection works as usual.
#pragma once

#include "winlib/Handles.h"
#include "winlib/controls/Tree.h"

class PresetDrag {
public:
    // REQUIRES: the process's Application, whose module holds the icon.
    PresetDrag();
    PresetDrag(const PresetDrag&) = delete;
    PresetDrag& operator=(const PresetDrag&) = delete;
    ~PresetDrag() { End(); }

    void Attach(WinLib::Controls::Tree tree) { tree_ = tree; }

    // The left button was pressed on an item, which is dragged when the mouse has moved far enough. Ignored
    // during a drag and after a press.
    void Press(HTREEITEM item, int x, int y);

    // The mouse has moved. Returns whether an item is being dragged: the owner then calls Mark.
    bool Move(int x, int y, WPARAM keys);

    // Marks the place of a drop on a top-level item, below its visible children; null for no such item.
    void Mark(HTREEITEM target) const;

    // The left button was released: ends a press or a drag. Returns the item to drop, null if none was
    // dragged.
    HTREEITEM Release();

    // Ends a press or a drag without a drop: at once; if it is that of an item; if an item is dragged.
    void End();
    void EndOf(HTREEITEM item);
    void CaptureLost();

    // Moves the contents of an item after those of another. The handles stay where they are.
    void Drop(HTREEITEM dragged, HTREEITEM target) const;

private:
    enum class DragStates { Idle = 0, Pending = 1, Dragging = 2 };

    void Begin(int x, int y);
    void MoveImage(int x, int y) const;

    WinLib::Controls::Tree tree_;
    HTREEITEM DragItem = nullptr;  // pressed or dragged
    WinLib::UniqueHandle<HIMAGELIST> DragImages;
    POINT DragThreshold;
    POINT DragStart = {};
    POINT HotSpot = {};
    DragStates DragState = DragStates::Idle;
};
