// Prints by how much the main window is wider and higher than its client area and menu: its frame and
// caption.
#include <cstdio>

#include "winlib/Windows.h"

int main() {
    RECT rect = {};
    AdjustWindowRectEx(&rect, WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_MINIMIZEBOX, FALSE, 0);
    std::printf("%ld %ld\n", rect.right - rect.left, rect.bottom - rect.top);
}
