#include "winlib/layout/Window.h"

#include "winlib/ParentCoordinates.h"

namespace WinLib::Layout {

namespace {

// One direction of a rectangle.
struct Span {
    LONG begin;
    LONG end;
};

// Returns the span of the window within its cell.
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
    MoveInParent(Handle, {x.begin, y.begin, x.end, y.end});
}

void Window::Measure() {
    MinimumRect = CurrentRect = RectInParent(Handle);
}

}  // namespace WinLib::Layout
