// A tree view in a host window, filled and read by the texts of its items.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "support/ui/HostWindow.h"
#include "support/ui/TreeReader.h"

class TreeFixture : public testing::Test {
protected:
    HTREEITEM Add(HTREEITEM parent, const std::wstring& text, LPARAM parameter = 0, UINT state = 0) const {
        TVINSERTSTRUCTW insert = {};
        insert.hParent = parent;
        insert.hInsertAfter = TVI_LAST;
        insert.item.mask = TVIF_TEXT | TVIF_PARAM | TVIF_STATE;
        insert.item.pszText = const_cast<wchar_t*>(text.c_str());
        insert.item.lParam = parameter;
        insert.item.state = insert.item.stateMask = state;
        return reinterpret_cast<HTREEITEM>(
            SendMessageW(window, TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&insert)));
    }

    // The whole subtree below an item, as a(b,c(d)).
    std::wstring Outline(HTREEITEM item) const {
        std::wstring outline = tree.Text(item);
        std::wstring separator = L"(";
        for (HTREEITEM child = tree.Related(item, TVGN_CHILD); child != nullptr;
             child = tree.Related(child, TVGN_NEXT)) {
            outline += separator + Outline(child);
            separator = L",";
        }
        return separator == L"," ? outline + L")" : outline;
    }

    HostWindow host;
    HWND window =
        host.Add(WC_TREEVIEWW, L"", TVS_HASBUTTONS | TVS_HASLINES | TVS_LINESATROOT, {0, 0, 400, 400});
    TreeReader tree{window};
};
