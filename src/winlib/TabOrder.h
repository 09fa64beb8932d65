// The order in which Tab walks the controls of a dialog. It is the order in which they overlap, too: of two
// controls in one place the one that comes first in it is drawn first.
#pragma once

#include <initializer_list>

#include "winlib/Windows.h"

namespace WinLib {

// Makes the controls with these ids the last ones of their dialog, in this order.
void PutLast(HWND dialog, std::initializer_list<int> ids);

}  // namespace WinLib
