// What trees need beyond the control's own messages. In an exchange of items the handles stay where they are
// and the contents travel, parameter, selection and expansion included, so that whatever is keyed by the
// parameter survives.
#pragma once

#include "winlib/Windows.h"

#include <commctrl.h>

namespace WinLib::Controls::TreeView {

// The item in one of the TVGN_ relations to another, or null.
HTREEITEM NextItem(HWND tree, WPARAM relation, HTREEITEM item);

// Exchanges the contents of two items with everything below them. Texts are cut at 1023 characters.
void SwapItems(HWND tree, HTREEITEM a, HTREEITEM b);

// Moves an item after the last child of another parent, where it gets a new handle. Children of the item are
// not taken along.
void MoveItem(HWND tree, HTREEITEM item, HTREEITEM newParent);

}  // namespace WinLib::Controls::TreeView
