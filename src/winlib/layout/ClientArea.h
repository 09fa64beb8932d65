// How a dialog uses a sizer tree on its client area.
#pragma once

#include "winlib/layout/Sizer.h"

namespace WinLib::Layout {

// Arranges the tree on the dialog's present client area.
void ArrangeOnClient(Sizer& root, HWND dialog);

// Takes the controls as the resource drew them for the minimum, and arranges. Call once, after the tree has
// been built.
void MeasureAndArrange(Sizer& root, HWND dialog);

// For WM_SIZE: arranges unless the dialog has been minimized. Returns whether it did.
bool ArrangeOnSize(Sizer& root, HWND dialog, WORD type);

// Returns the outer size of the dialog at which its client area has the minimum size of a measured tree.
SIZE OuterMinimum(const Sizer& root, HWND dialog, bool hasMenu);

}  // namespace WinLib::Layout
