// A tree view, addressed by its window. A value that does not own the window: copy it freely. All messages to
// tree views are sent from here, so that callers need no casts.
#pragma once

#include <optional>
#include <vector>

#include "winlib/Handles.h"
#include "winlib/Windows.h"

#include <commctrl.h>

namespace WinLib::Controls {

class Tree {
public:
    Tree() = default;
    explicit Tree(HWND window) : window_(window) {}

    operator HWND() const { return window_; }

    // Notifications carry UTF-16 texts from now on.
    void UseUnicode() const;
    void SetItemHeight(int pixels) const;

    // Installs the images of the item states and returns those that it replaces, which then belong to the
    // caller. images stay the caller's and must outlive the window's use of them.
    UniqueHandle<HIMAGELIST> SetStateImages(HIMAGELIST images) const;

    // Appends an item to the children of parent, or to the top level for TVI_ROOT. Returns null on failure.
    // The bits of stateMask are set to those of state.
    HTREEITEM Insert(HTREEITEM parent, const wchar_t* text, LPARAM parameter, UINT state = 0,
                     UINT stateMask = 0) const;

    // As above, with the parts of the item that its mask names.
    HTREEITEM Insert(HTREEITEM parent, const TVITEMW& item) const;

    // Removes an item with all items below it; TVI_ROOT removes all items. REQUIRES: item is not null.
    void Remove(HTREEITEM item) const;

    // Returns the item in a TVGN_ relation to another, or null.
    HTREEITEM Next(UINT relation, HTREEITEM item) const;
    HTREEITEM Parent(HTREEITEM item) const { return Next(TVGN_PARENT, item); }

    // Returns the selected item, or null.
    HTREEITEM Caret() const { return Next(TVGN_CARET, nullptr); }

    // Returns the children of an item from top to bottom; for TVI_ROOT the top-level items.
    std::vector<HTREEITEM> Children(HTREEITEM parent) const;

    // Selects an item; null selects none.
    void Select(HTREEITEM item) const;

    // Shows or hides the children of an item.
    void Expand(HTREEITEM item, bool expand) const;
    bool IsExpanded(HTREEITEM item) const { return State(item, TVIS_EXPANDED) != 0; }

    // Fill in, or store, the parts of an item that its mask names. Read returns false if there is no such
    // item.
    bool Read(TVITEMW& item) const;
    void Write(const TVITEMW& item) const;

    // Returns nothing if there is no such item.
    std::optional<LPARAM> Parameter(HTREEITEM item) const;
    void SetText(HTREEITEM item, wchar_t* text) const;

    // Returns the bits of mask in an item's state, 0 if there is no such item.
    UINT State(HTREEITEM item, UINT mask) const;
    void SetState(HTREEITEM item, UINT state, UINT mask) const;

    // All positions are in client coordinates.
    TVHITTESTINFO HitTest(int x, int y) const;
    RECT LabelRect(HTREEITEM item) const;

    // Draws the insert mark below an item; null removes it, as ClearMark does.
    void MarkBelow(HTREEITEM item) const;
    void ClearMark() const;

    // Opens an item's label for editing; ends the edit and keeps the text. LabelEdit returns the edit
    // control, null if no label is edited.
    void EditLabel(HTREEITEM item) const;
    void EndLabelEdit() const;
    HWND LabelEdit() const;

private:
    HWND window_ = nullptr;
};

}  // namespace WinLib::Controls
