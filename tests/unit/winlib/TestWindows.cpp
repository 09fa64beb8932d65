#include "TestWindows.h"

namespace TestWindows {

RECT PlaceOf(HWND child) {
    RECT rect = {};
    GetWindowRect(child, &rect);
    POINT origin = {};
    ClientToScreen(GetParent(child), &origin);
    return {rect.left - origin.x, rect.top - origin.y, rect.right - origin.x, rect.bottom - origin.y};
}

}  // namespace TestWindows
