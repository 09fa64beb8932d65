#include "winlib/controls/SplitterCtrl.h"

#include <algorithm>

#include "winlib/ParentCoordinates.h"

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
    SetWindowLongPtrW(Handle, GWL_STYLE, GetWindowLongPtrW(Handle, GWL_STYLE) | SS_NOTIFY);
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
    dragging_ = true;
    SetCapture(Handle);
    dragStart_ = ToParent(Handle, {x, y});
    splitterRect_ = RectInParent(Handle);
    leftRect_ = LeftSizer->CurrentRect;
    rightRect_ = RightSizer->CurrentRect;
    return true;
}

// Everything is reckoned from the start of the drag, so that the sizes do not drift.
bool SplitterCtrl::HandleMouseMove(int x, int y, WPARAM keys) {
    if (!dragging_ || !(keys & MK_LBUTTON))
        return true;
    const LONG wanted = ToParent(Handle, {x, y}).x - dragStart_.x;
    const LONG shift = std::clamp(wanted, -Slack(leftRect_, *LeftSizer), Slack(rightRect_, *RightSizer));

    RECT left = leftRect_;
    RECT right = rightRect_;
    left.right += shift;
    right.left += shift;
    LeftSizer->Arrange(left);
    RightSizer->Arrange(right);
    MoveWindow(Handle, splitterRect_.left + shift, splitterRect_.top, Width(splitterRect_),
               splitterRect_.bottom - splitterRect_.top, TRUE);
    // A control keeps its picture when it moves, and with it what the other side has been drawn over it.
    RedrawWindow(GetParent(Handle), nullptr, nullptr, RDW_INVALIDATE | RDW_ALLCHILDREN);
    return true;
}

bool SplitterCtrl::HandleLButtonUp(int, int, WPARAM) {
    dragging_ = false;
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
