#include "support/ui/TreeReader.h"

#include <cstring>

HTREEITEM TreeReader::Related(HTREEITEM item, UINT relation) const {
    return reinterpret_cast<HTREEITEM>(
        SendMessageW(tree_, TVM_GETNEXTITEM, relation, reinterpret_cast<LPARAM>(item)));
}

HTREEITEM TreeReader::Item(const std::wstring& text) const {
    HTREEITEM item = Related(nullptr, TVGN_ROOT);
    while (item != nullptr && Text(item) != text)
        item = Related(item, TVGN_NEXT);
    return item;
}

HTREEITEM TreeReader::Child(HTREEITEM parent, const std::wstring& text) const {
    HTREEITEM item = Related(parent, TVGN_CHILD);
    while (item != nullptr && Text(item) != text)
        item = Related(item, TVGN_NEXT);
    return item;
}

std::wstring TreeReader::Text(HTREEITEM item) const {
    std::wstring text(4096, L'\0');
    TVITEMW data = {};
    data.mask = TVIF_TEXT;
    data.hItem = item;
    data.pszText = text.data();
    data.cchTextMax = static_cast<int>(text.size());
    SendMessageW(tree_, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&data));
    return text.c_str();
}

std::vector<std::wstring> TreeReader::Names() const {
    std::vector<std::wstring> names;
    for (HTREEITEM item = Related(nullptr, TVGN_ROOT); item != nullptr; item = Related(item, TVGN_NEXT))
        names.push_back(Text(item));
    return names;
}

std::vector<std::wstring> TreeReader::Children(HTREEITEM item) const {
    std::vector<std::wstring> names;
    for (HTREEITEM child = Related(item, TVGN_CHILD); child != nullptr; child = Related(child, TVGN_NEXT))
        names.push_back(Text(child));
    return names;
}

bool TreeReader::IsExpanded(HTREEITEM item) const {
    return (SendMessageW(tree_, TVM_GETITEMSTATE, reinterpret_cast<WPARAM>(item), TVIS_EXPANDED) &
            TVIS_EXPANDED) != 0;
}

LPARAM TreeReader::Parameter(HTREEITEM item) const {
    TVITEMW data = {};
    data.mask = TVIF_PARAM;
    data.hItem = item;
    SendMessageW(tree_, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&data));
    return data.lParam;
}

void TreeReader::Select(HTREEITEM item) const {
    SendMessageW(tree_, TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(item));
}

void TreeReader::Expand(HTREEITEM item) const {
    SendMessageW(tree_, TVM_EXPAND, TVE_EXPAND, reinterpret_cast<LPARAM>(item));
}

RECT TreeReader::Label(HTREEITEM item) const {
    RECT label = {};
    std::memcpy(&label, &item, sizeof(item));
    SendMessageW(tree_, TVM_GETITEMRECT, TRUE, reinterpret_cast<LPARAM>(&label));
    return label;
}

POINT TreeReader::Middle(HTREEITEM item) const {
    const RECT label = Label(item);
    return {(label.left + label.right) / 2, (label.top + label.bottom) / 2};
}

POINT TreeReader::EmptySpace() const {
    RECT client = {};
    GetClientRect(tree_, &client);
    return {client.right / 2, client.bottom - 2};
}
