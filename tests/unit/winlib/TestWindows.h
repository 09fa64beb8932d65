// The few windows that the tests of this folder need, made by the system under Wine and by the stand-in on
// Linux.
#pragma once

#include "winlib/Windows.h"

namespace TestWindows {

// A dialog with the buttons IDOK, IDCANCEL and ButtonId.
inline constexpr int DialogId = 900;
inline constexpr int ButtonId = 100;

// Makes the template known where it is not in the program's resources.
void DefineDialog();

// A top-level window; without a procedure it does nothing of its own.
HWND MakeWindow(WNDPROC procedure = nullptr);

// A child of it. rect is in the parent's client coordinates.
HWND MakeChild(HWND parent, const RECT& rect);

// Where the child lies in its parent's client area.
RECT PlaceOf(HWND child);

// How often a child has been moved or sized, be it to the place where it was.
int Moves(HWND child);

}  // namespace TestWindows
