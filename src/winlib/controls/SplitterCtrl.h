// A static that the user drags to move the border between the sizers at its left and right. The position is
// not stored: the next layout of the whole dialog resets it.
#pragma once

#include "winlib/Controller.h"
#include "winlib/layout/Sizer.h"

namespace WinLib {

class SplitterCtrl : public Window::Controller,
                     public Handlers::Handler<WM_MOUSEMOVE>,
                     public Handlers::Handler<WM_SETCURSOR>,
                     public Handlers::Handler<WM_LBUTTONDOWN>,
                     public Handlers::Handler<WM_LBUTTONUP>,
                     public Handlers::Handler<WM_SIZE> {
public:
    void OnAttach() override;
    bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    bool HandleMouseMove(int x, int y, WPARAM keys) override;
    bool HandleSetCursor(HWND window, WORD hitTest, WORD mouseMessage, bool& cursorSet) override;
    bool HandleLButtonDown(int x, int y, WPARAM keys) override;
    bool HandleLButtonUp(int x, int y, WPARAM keys) override;
    bool HandleSize(WORD type, WORD width, WORD height) override;

    HCURSOR Cursor = nullptr;

    // The sizers at its sides; not owned. To be set by the owner after it has built its sizer tree.
    Layout::Sizer* LeftSizer = nullptr;
    Layout::Sizer* RightSizer = nullptr;

private:
    bool Dragging = false;
    POINT DragStart = {};  // like all below, in client coordinates of the parent
    RECT SplitterRect = {};
    RECT LeftRect = {};
    RECT RightRect = {};
};

}  // namespace WinLib
