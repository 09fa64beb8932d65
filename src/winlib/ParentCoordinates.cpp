#include "winlib/ParentCoordinates.h"

namespace WinLib {

namespace {

HWND ParentOf(HWND window) {
    const bool isChild = (GetWindowLongPtrW(window, GWL_STYLE) & WS_CHILD) != 0;
    return isChild ? GetParent(window) : GetDesktopWindow();
}

}  // namespace

POINT ScreenToParent(HWND window, POINT point) {
    ScreenToClient(ParentOf(window), &point);
    return point;
}

RECT RectInParent(HWND window) {
    RECT rect = {};
    GetWindowRect(window, &rect);
    const POINT topLeft = ScreenToParent(window, {rect.left, rect.top});
    const POINT bottomRight = ScreenToParent(window, {rect.right, rect.bottom});
    return {topLeft.x, topLeft.y, bottomRight.x, bottomRight.y};
}

void MoveInParent(HWND window, const RECT& place) {
    const RECT before = RectInParent(window);
    if (EqualRect(&place, &before))
        return;
    MoveWindow(window, place.left, place.top, place.right - place.left, place.bottom - place.top, TRUE);
    if (!IsWindowVisible(window))
        return;
    // MoveWindow sees to the place that has become free. But a moved control takes along what its neighbours
    // have drawn on it, and a frame that grows keeps the lines that it had.
    RedrawWindow(ParentOf(window), &place, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

}  // namespace WinLib
