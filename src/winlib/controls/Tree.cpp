#include "winlib/controls/Tree.h"

#include <cstring>

namespace WinLib::Controls {
namespace {

// A pointer or an item as a message carries it.
template <typename Pointer>
LPARAM Packed(Pointer pointer) {
    return reinterpret_cast<LPARAM>(pointer);
}

}  // namespace

void Tree::UseUnicode() const {
    SendMessageW(window_, CCM_SETUNICODEFORMAT, TRUE, 0);
}

void Tree::SetItemHeight(int pixels) const {
    SendMessageW(window_, TVM_SETITEMHEIGHT, static_cast<WPARAM>(pixels), 0);
}

UniqueHandle<HIMAGELIST> Tree::SetStateImages(HIMAGELIST images) const {
    return UniqueHandle<HIMAGELIST>(
        reinterpret_cast<HIMAGELIST>(SendMessageW(window_, TVM_SETIMAGELIST, TVSIL_STATE, Packed(images))));
}

HTREEITEM Tree::Insert(HTREEITEM parent, const wchar_t* text, LPARAM parameter, UINT state,
                       UINT stateMask) const {
    TVITEMW item = {};
    item.mask = TVIF_TEXT | TVIF_PARAM;
    item.pszText = const_cast<wchar_t*>(text);
    item.lParam = parameter;
    if (stateMask != 0) {
        item.mask |= TVIF_STATE;
        item.state = state;
        item.stateMask = stateMask;
    }
    return Insert(parent, item);
}

HTREEITEM Tree::Insert(HTREEITEM parent, const TVITEMW& item) const {
    TVINSERTSTRUCTW insertion = {};
    insertion.hParent = parent;
    insertion.hInsertAfter = TVI_LAST;
    insertion.item = item;
    return reinterpret_cast<HTREEITEM>(SendMessageW(window_, TVM_INSERTITEMW, 0, Packed(&insertion)));
}

void Tree::Remove(HTREEITEM item) const {
    SendMessageW(window_, TVM_DELETEITEM, 0, Packed(item));
}

HTREEITEM Tree::Next(UINT relation, HTREEITEM item) const {
    return reinterpret_cast<HTREEITEM>(SendMessageW(window_, TVM_GETNEXTITEM, relation, Packed(item)));
}

std::vector<HTREEITEM> Tree::Children(HTREEITEM parent) const {
    std::vector<HTREEITEM> children;
    HTREEITEM child = parent == TVI_ROOT ? Next(TVGN_ROOT, nullptr) : Next(TVGN_CHILD, parent);
    for (; child != nullptr; child = Next(TVGN_NEXT, child))
        children.push_back(child);
    return children;
}

void Tree::Select(HTREEITEM item) const {
    SendMessageW(window_, TVM_SELECTITEM, TVGN_CARET, Packed(item));
}

void Tree::Expand(HTREEITEM item, bool expand) const {
    SendMessageW(window_, TVM_EXPAND, expand ? TVE_EXPAND : TVE_COLLAPSE, Packed(item));
}

bool Tree::Read(TVITEMW& item) const {
    return SendMessageW(window_, TVM_GETITEMW, 0, Packed(&item)) != FALSE;
}

void Tree::Write(const TVITEMW& item) const {
    SendMessageW(window_, TVM_SETITEMW, 0, Packed(&item));
}

std::optional<LPARAM> Tree::Parameter(HTREEITEM item) const {
    TVITEMW query = {};
    query.mask = TVIF_HANDLE | TVIF_PARAM;
    query.hItem = item;
    if (item == nullptr || !Read(query))
        return std::nullopt;
    return query.lParam;
}

void Tree::SetText(HTREEITEM item, wchar_t* text) const {
    TVITEMW change = {};
    change.mask = TVIF_TEXT;
    change.hItem = item;
    change.pszText = text;
    Write(change);
}

UINT Tree::State(HTREEITEM item, UINT mask) const {
    TVITEMW query = {};
    query.mask = TVIF_STATE | TVIF_HANDLE;
    query.hItem = item;
    query.stateMask = mask;
    if (item == nullptr || !Read(query))
        return 0;
    return query.state & mask;
}

void Tree::SetState(HTREEITEM item, UINT state, UINT mask) const {
    TVITEMW change = {};
    change.mask = TVIF_STATE | TVIF_HANDLE;
    change.hItem = item;
    change.state = state;
    change.stateMask = mask;
    Write(change);
}

TVHITTESTINFO Tree::HitTest(int x, int y) const {
    TVHITTESTINFO hit = {};
    hit.pt = {x, y};
    SendMessageW(window_, TVM_HITTEST, 0, Packed(&hit));
    return hit;
}

RECT Tree::LabelRect(HTREEITEM item) const {
    RECT label = {};
    // TVM_GETITEMRECT expects the item's handle in the first bytes of the rectangle.
    std::memcpy(&label, &item, sizeof(HTREEITEM));
    SendMessageW(window_, TVM_GETITEMRECT, TRUE, Packed(&label));
    return label;
}

void Tree::MarkBelow(HTREEITEM item) const {
    SendMessageW(window_, TVM_SETINSERTMARK, TRUE, Packed(item));
}

void Tree::ClearMark() const {
    SendMessageW(window_, TVM_SETINSERTMARK, 0, 0);
}

void Tree::EditLabel(HTREEITEM item) const {
    SendMessageW(window_, TVM_EDITLABELW, 0, Packed(item));
}

void Tree::EndLabelEdit() const {
    SendMessageW(window_, TVM_ENDEDITLABELNOW, FALSE, 0);
}

HWND Tree::LabelEdit() const {
    return reinterpret_cast<HWND>(SendMessageW(window_, TVM_GETEDITCONTROL, 0, 0));
}

}  // namespace WinLib::Controls
