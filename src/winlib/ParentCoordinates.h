// Places in the client coordinates of a window's parent, which is what layouts reckon in. For a window that
// is no child the desktop is used as the parent.
#pragma once

#include "winlib/Windows.h"

namespace WinLib {

// A point of the screen.
POINT ScreenToParent(HWND window, POINT point);

// The rectangle of the window; empty if it has been destroyed.
RECT RectInParent(HWND window);

// Moves and sizes the window and has drawn again what that changes on the screen. Does nothing if the window
// is there already, so that nothing flickers.
void MoveInParent(HWND window, const RECT& place);

}  // namespace WinLib
