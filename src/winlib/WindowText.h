// The text of a window as a string.
#pragma once

#include <string>

#include "winlib/Windows.h"

namespace WinLib {

std::wstring GetWindowText(HWND window);

}  // namespace WinLib
