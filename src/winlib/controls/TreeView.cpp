#include "winlib/controls/TreeView.h"

namespace WinLib::Controls::TreeView {
namespace {

constexpr int TextCapacity = 1024;

// All that an item shows and carries.
struct Contents {
    TVITEMW item = {};
    wchar_t text[TextCapacity];

    bool Read(HWND tree, HTREEITEM handle) {
        item.mask = TVIF_TEXT | TVIF_IMAGE | TVIF_PARAM | TVIF_STATE | TVIF_HANDLE | TVIF_SELECTEDIMAGE |
                    TVIF_CHILDREN;
        item.hItem = handle;
        item.stateMask = ~0u;
        item.pszText = text;
        item.cchTextMax = TextCapacity;
        return SendMessageW(tree, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item)) != FALSE;
    }
};

// Selecting and expanding are the tree's business and are asked of it; so is the count of children, which has
// changed already when the children were moved.
void Write(HWND tree, HTREEITEM place, const Contents& contents) {
    TVITEMW item = contents.item;
    item.hItem = place;
    item.mask &= ~static_cast<UINT>(TVIF_CHILDREN);
    item.stateMask &= ~static_cast<UINT>(TVIS_SELECTED | TVIS_EXPANDED);
    SendMessageW(tree, TVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item));
}

void RestoreSelectionAndExpansion(HWND tree, HTREEITEM place, const Contents& contents) {
    const auto handle = reinterpret_cast<LPARAM>(place);
    if (contents.item.state & TVIS_SELECTED)
        SendMessageW(tree, TVM_SELECTITEM, TVGN_CARET, handle);
    SendMessageW(tree, TVM_EXPAND, contents.item.state & TVIS_EXPANDED ? TVE_EXPAND : TVE_COLLAPSE, handle);
}

void MoveSiblings(HWND tree, HTREEITEM first, HTREEITEM newParent) {
    while (first != nullptr) {
        const HTREEITEM next = NextItem(tree, TVGN_NEXT, first);
        MoveItem(tree, first, newParent);
        first = next;
    }
}

void SwapChildren(HWND tree, HTREEITEM a, HTREEITEM b) {
    HTREEITEM childOfA = NextItem(tree, TVGN_CHILD, a);
    HTREEITEM childOfB = NextItem(tree, TVGN_CHILD, b);
    while (childOfA != nullptr && childOfB != nullptr) {
        SwapItems(tree, childOfA, childOfB);
        childOfA = NextItem(tree, TVGN_NEXT, childOfA);
        childOfB = NextItem(tree, TVGN_NEXT, childOfB);
    }
    MoveSiblings(tree, childOfA, b);
    MoveSiblings(tree, childOfB, a);
}

}  // namespace

HTREEITEM NextItem(HWND tree, WPARAM relation, HTREEITEM item) {
    return reinterpret_cast<HTREEITEM>(
        SendMessageW(tree, TVM_GETNEXTITEM, relation, reinterpret_cast<LPARAM>(item)));
}

void SwapItems(HWND tree, HTREEITEM a, HTREEITEM b) {
    // Before the children: to select one of them in a closed item opens that item.
    Contents ofA;
    Contents ofB;
    if (!ofA.Read(tree, a) || !ofB.Read(tree, b))
        return;
    SwapChildren(tree, a, b);
    Write(tree, a, ofB);
    Write(tree, b, ofA);
    RestoreSelectionAndExpansion(tree, a, ofB);
    RestoreSelectionAndExpansion(tree, b, ofA);
}

void MoveItem(HWND tree, HTREEITEM item, HTREEITEM newParent) {
    Contents contents;
    if (!contents.Read(tree, item))
        return;
    TVINSERTSTRUCTW insert = {};
    insert.hParent = newParent;
    insert.hInsertAfter = TVI_LAST;
    insert.item = contents.item;
    insert.item.mask &= ~static_cast<UINT>(TVIF_HANDLE);
    SendMessageW(tree, TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&insert));
    SendMessageW(tree, TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(item));
}

}  // namespace WinLib::Controls::TreeView
