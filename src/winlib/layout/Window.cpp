#include "winlib/layout/Window.h"

namespace WinLib::Layout {

namespace {

// Where the window lies in its parent; empty when the window is gone.
RECT RectInParent(HWND window) {
    RECT rect = {};
    GetWindowRect(window, &rect);
    const bool isChild = (GetWindowLongPtrW(window, GWL_STYLE) & WS_CHILD) != 0;
    const HWND parent = isChild ? GetParent(window) : GetDesktopWindow();
    POINT topLeft = {rect.left, rect.top};
    POINT bottomRight = {rect.right, rect.bottom};
    ScreenToClient(parent, &topLeft);
    ScreenToClient(parent, &bottomRight);
    return {topLeft.x, topLeft.y, bottomRight.x, bottomRight.y};
}

// One direction of a rectangle.
struct Span {
    LONG begin;
    LONG end;
};

// Where the window's own span goes within its cell.
Span Align(Alignment alignment, Span own, Span cell) {
    const LONG length = own.end - own.begin;
    LONG begin = cell.begin;
    switch (alignment) {
        case Alignment::Near:
            break;
        case Alignment::Center:
            begin += (cell.end - cell.begin - length) / 2;
            break;
        case Alignment::Far:
            begin = cell.end - length;
            break;
        case Alignment::Fill:
            return cell;
    }
    return {begin, begin + length};
}

}  // namespace

Window::Window(HWND window, Alignment horizontal, Alignment vertical)
    : Handle(window), Horizontal(horizontal), Vertical(vertical) {
    MinimumRect = CurrentRect = RectInParent(Handle);
}

void Window::Arrange(const RECT& rect) {
    Sizer::Arrange(rect);
    const RECT present = RectInParent(Handle);
    const Span x = Align(Horizontal, {present.left, present.right}, {CurrentRect.left, CurrentRect.right});
    const Span y = Align(Vertical, {present.top, present.bottom}, {CurrentRect.top, CurrentRect.bottom});
    const RECT wanted = {x.begin, y.begin, x.end, y.end};
    if (!EqualRect(&wanted, &present))
        MoveWindow(Handle, wanted.left, wanted.top, Width(wanted), Height(wanted), TRUE);
}

void Window::Measure() {
    MinimumRect = CurrentRect = RectInParent(Handle);
}

}  // namespace WinLib::Layout
