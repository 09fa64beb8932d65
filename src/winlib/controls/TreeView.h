// Moves the contents of tree items. In an exchange the handles stay where they are and the contents travel,
// parameter, selection and expansion included, so that whatever is keyed by the parameter survives.
#pragma once

#include "winlib/Windows.h"

#include <commctrl.h>

namespace WinLib::Controls::TreeView {

// Exchanges the contents of two items with all items below them. Texts are cut at 1023 characters.
void SwapItems(HWND window, HTREEITEM a, HTREEITEM b);

// Moves an item to the end of another parent's children, where it gets a new handle. Children of the item are
// not taken along.
void MoveItem(HWND window, HTREEITEM item, HTREEITEM newParent);

}  // namespace WinLib::Controls::TreeView
