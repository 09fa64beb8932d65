// How a dialog puts its sizer tree on its client area.
#pragma once

#include "winlib/layout/Sizer.h"

namespace WinLib::Layout {

// Arranges the tree on the dialog's present client area.
void ArrangeOnClient(Sizer& root, HWND dialog);

}  // namespace WinLib::Layout
