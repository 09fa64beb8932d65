// The style bits of an existing window.
#pragma once

#include "winlib/Windows.h"

namespace WinLib {

void AddStyle(HWND window, LONG_PTR style);
void RemoveStyle(HWND window, LONG_PTR style);

}  // namespace WinLib
