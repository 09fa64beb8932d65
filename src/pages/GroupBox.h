// What all pages have in common: a group box that fills the page, and a column of controls in it.
#pragma once

#include "winlib/layout/Overlapped.h"
#include "winlib/layout/Stack.h"

// The margins of the column on most pages.
inline constexpr WinLib::Layout::Margins PageMargins = {.left = 20, .top = 28, .right = 20, .bottom = 20};

// Adds the group box and returns the column, which the sizer tree owns.
WinLib::Layout::VStack& AddGroupBox(WinLib::Layout::Overlapped& root, HWND groupBox,
                                    const WinLib::Layout::Margins& margins = PageMargins);
