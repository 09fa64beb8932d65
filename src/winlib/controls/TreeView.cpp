#include "winlib/controls/TreeView.h"

#include <algorithm>

#include "winlib/controls/Tree.h"

namespace WinLib::Controls::TreeView {
namespace {

constexpr int TextCapacity = 1024;

// All that an item shows and carries.
struct Contents {
    TVITEMW item = {};
    wchar_t text[TextCapacity];

    bool Read(const Tree& tree, HTREEITEM handle) {
        item.mask = TVIF_TEXT | TVIF_IMAGE | TVIF_PARAM | TVIF_STATE | TVIF_HANDLE | TVIF_SELECTEDIMAGE |
                    TVIF_CHILDREN;
        item.hItem = handle;
        item.stateMask = ~0u;
        item.pszText = text;
        item.cchTextMax = TextCapacity;
        return tree.Read(item);
    }
};

// Selection and expansion are restored by messages afterwards; the child count is left to the tree, since the
// children have already moved.
void Write(const Tree& tree, HTREEITEM place, const Contents& contents) {
    TVITEMW item = contents.item;
    item.hItem = place;
    item.mask &= ~static_cast<UINT>(TVIF_CHILDREN);
    item.stateMask &= ~static_cast<UINT>(TVIS_SELECTED | TVIS_EXPANDED);
    tree.Write(item);
}

void RestoreSelectionAndExpansion(const Tree& tree, HTREEITEM place, const Contents& contents) {
    if (contents.item.state & TVIS_SELECTED)
        tree.Select(place);
    tree.Expand(place, (contents.item.state & TVIS_EXPANDED) != 0);
}

void SwapChildren(const Tree& tree, HTREEITEM a, HTREEITEM b) {
    const std::vector<HTREEITEM> ofA = tree.Children(a);
    const std::vector<HTREEITEM> ofB = tree.Children(b);
    const size_t pairs = std::min(ofA.size(), ofB.size());
    for (size_t i = 0; i < pairs; ++i)
        SwapItems(tree, ofA[i], ofB[i]);
    for (size_t i = pairs; i < ofA.size(); ++i)
        MoveItem(tree, ofA[i], b);
    for (size_t i = pairs; i < ofB.size(); ++i)
        MoveItem(tree, ofB[i], a);
}

}  // namespace

void SwapItems(HWND window, HTREEITEM a, HTREEITEM b) {
    const Tree tree(window);
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

void MoveItem(HWND window, HTREEITEM item, HTREEITEM newParent) {
    const Tree tree(window);
    Contents contents;
    if (!contents.Read(tree, item))
        return;
    TVITEMW copy = contents.item;
    copy.mask &= ~static_cast<UINT>(TVIF_HANDLE);
    tree.Insert(newParent, copy);
    tree.Remove(item);
}

}  // namespace WinLib::Controls::TreeView
