// Where a window goes when the screen has changed under it.
#pragma once

#include "winlib/Windows.h"

// The window's rectangle moved into the monitor's work area, its size kept. If it is wider than that its left
// edge is the one that stays inside. A window that had to move up for its bottom edge may be above the
// top: only a top edge that lay there before is brought back.
RECT FitToWorkArea(const RECT& window, const MONITORINFO& monitor);
