// A tree view as the user sees it: items by their texts, what is selected and open, and where they lie.
#pragma once

#include <string>
#include <vector>

#include "winlib/Windows.h"

#include <commctrl.h>

class TreeReader {
public:
    explicit TreeReader(HWND tree = nullptr) : tree_(tree) {}

    HWND Window() const { return tree_; }

    // The first top-level item of this text, and the first child of an item. Null if there is none.
    HTREEITEM Item(const std::wstring& text) const;
    HTREEITEM Child(HTREEITEM parent, const std::wstring& text) const;

    HTREEITEM Related(HTREEITEM item, UINT relation) const;
    HTREEITEM Selected() const { return Related(nullptr, TVGN_CARET); }
    std::wstring Text(HTREEITEM item) const;

    // Texts of the top-level items, and of an item's children.
    std::vector<std::wstring> Names() const;
    std::vector<std::wstring> Children(HTREEITEM item) const;

    bool IsExpanded(HTREEITEM item) const;
    LPARAM Parameter(HTREEITEM item) const;

    void Select(HTREEITEM item) const;
    void Expand(HTREEITEM item) const;

    // In client coordinates of the tree: the label, its middle, and a place below all items.
    RECT Label(HTREEITEM item) const;
    POINT Middle(HTREEITEM item) const;
    POINT EmptySpace() const;

private:
    HWND tree_;
};
