#include "winlib/controls/SplitterCtrl.h"

#include <algorithm>

#include "winlib/ParentCoordinates.h"
#include "winlib/WindowStyle.h"

namespace WinLib {
namespace {

POINT ToParent(HWND window, POINT point) {
    ClientToScreen(window, &point);
    return ScreenToParent(window, point);
}

LONG Width(const RECT& rect) {
    return rect.right - rect.left;
}

// How far a side can shrink from what it was.
LONG Slack(const RECT& rect, const Layout::Sizer& sizer) {
    return std::max<LONG>(Width(rect) - Width(sizer.MinimumRect), 0);
}

}  // namespace

void SplitterCtrl::OnAttach() {
    // Without this style a static gets no mouse input.
    AddStyle(Handle, SS_NOTIFY);
}

bool SplitterCtrl::OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    switch (message) {
        case WM_MOUSEMOVE:
            return Handler<WM_MOUSEMOVE>::Dispatch(wParam, lParam, result);
        case WM_SETCURSOR:
            return Handler<WM_SETCURSOR>::Dispatch(wParam, lParam, result);
        case WM_LBUTTONDOWN:
            return Handler<WM_LBUTTONDOWN>::Dispatch(wParam, lParam, result);
        case WM_LBUTTONUP:
            return Handler<WM_LBUTTONUP>::Dispatch(wParam, lParam, result);
        case WM_SIZE:
            return Handler<WM_SIZE>::Dispatch(wParam, lParam, result);
        default:
            return Controller::OnMessage(message, wParam, lParam, result);
    }
}

bool SplitterCtrl::HandleLButtonDown(int x, int y, WPARAM) {
    Dragging = true;
    SetCapture(Handle);
    DragStart = ToParent(Handle, {x, y});
    SplitterRect = RectInParent(Handle);
    LeftRect = LeftSizer->CurrentRect;
    RightRect = RightSizer->CurrentRect;
    return true;
}

// Everything is reckoned from the start of the drag, so that the sizes do not drift.
bool SplitterCtrl::HandleMouseMove(int x, int y, WPARAM keys) {
    if (!Dragging || !(keys & MK_LBUTTON))
        return true;
    const LONG wanted = ToParent(Handle, {x, y}).x - DragStart.x;
    const LONG shift = std::clamp(wanted, -Slack(LeftRect, *LeftSizer), Slack(RightRect, *RightSizer));

    RECT left = LeftRect;
    RECT right = RightRect;
    left.right += shift;
    right.left += shift;
    LeftSizer->Arrange(left);
    RightSizer->Arrange(right);
    RECT splitter = SplitterRect;
    OffsetRect(&splitter, shift, 0);
    MoveInParent(Handle, splitter);
    return true;
}

bool SplitterCtrl::HandleLButtonUp(int, int, WPARAM) {
    Dragging = false;
    ReleaseCapture();
    return true;
}

bool SplitterCtrl::HandleSetCursor(HWND, WORD, WORD, bool& cursorSet) {
    SetCursor(Cursor);
    cursorSet = true;
    return true;
}

bool SplitterCtrl::HandleSize(WORD, WORD, WORD) {
    return true;
}

}  // namespace WinLib
