// A static text that looks like a link: blue, underlined under the mouse, with a menu to copy it. The dialog
// handles clicks (STN_CLICKED).
#pragma once

#include "winlib/Controller.h"
#include "winlib/Handles.h"

namespace WinLib {

class HyperLinkCtrl : public Window::Controller,
                      public Handlers::Handler<WM_PAINT>,
                      public Handlers::Handler<WM_MOUSEMOVE>,
                      public Handlers::Handler<WM_SETCURSOR>,
                      public Handlers::Handler<WM_RBUTTONUP> {
public:
    HyperLinkCtrl();

    void OnAttach() override;
    bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    bool HandlePaint() override;
    bool HandleMouseMove(int x, int y, WPARAM keys) override;
    bool HandleSetCursor(HWND window, WORD hitTest, WORD mouseMessage, bool& cursorSet) override;
    bool HandleRButtonUp(int x, int y, WPARAM keys) override;

    HCURSOR HandCursor;          // shared, not owned
    HFONT NormalFont = nullptr;  // not owned
    UniqueHandle<HFONT> UnderlinedFont;
    bool Hovering = false;

private:
    void CopyText() const;
    void EndHover();
};

}  // namespace WinLib
