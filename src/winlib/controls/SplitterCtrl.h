// A static that is dragged to shift the border between what lies at its left and at its right. The new place
// is stored nowhere: the next arranging of the whole dialog undoes it.
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

    // What the splitter separates; not owned. Set by the owner when its sizer tree stands.
    Layout::Sizer* LeftSizer = nullptr;
    Layout::Sizer* RightSizer = nullptr;

private:
    bool Dragging = false;
    POINT DragStart = {};  // as all below in client coordinates of the parent
    RECT SplitterRect = {};
    RECT LeftRect = {};
    RECT RightRect = {};
};

}  // namespace WinLib
