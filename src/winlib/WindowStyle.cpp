#include "winlib/WindowStyle.h"

namespace WinLib {

void AddStyle(HWND window, LONG_PTR style) {
    SetWindowLongPtrW(window, GWL_STYLE, GetWindowLongPtrW(window, GWL_STYLE) | style);
}

void RemoveStyle(HWND window, LONG_PTR style) {
    SetWindowLongPtrW(window, GWL_STYLE, GetWindowLongPtrW(window, GWL_STYLE) & ~style);
}

}  // namespace WinLib
