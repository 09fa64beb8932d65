#include "winlib/ParentCoordinates.h"

namespace WinLib {

POINT ScreenToParent(HWND window, POINT point) {
    const bool isChild = (GetWindowLongPtrW(window, GWL_STYLE) & WS_CHILD) != 0;
    ScreenToClient(isChild ? GetParent(window) : GetDesktopWindow(), &point);
    return point;
}

RECT RectInParent(HWND window) {
    RECT rect = {};
    GetWindowRect(window, &rect);
    const POINT topLeft = ScreenToParent(window, {rect.left, rect.top});
    const POINT bottomRight = ScreenToParent(window, {rect.right, rect.bottom});
    return {topLeft.x, topLeft.y, bottomRight.x, bottomRight.y};
}

}  // namespace WinLib
