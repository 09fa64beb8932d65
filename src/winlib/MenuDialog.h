// A modal dialog whose only way out is a button "Close". None of its controls has the id IDOK or IDCANCEL, so
// Enter and Esc arrive as menu commands: they end the dialog with 1 and with 0. WM_CLOSE ends it with 1.
#pragma once

#include "winlib/Controller.h"

namespace WinLib::Dialog {

class MenuDialog : public ModalController,
                   public Handlers::Handler<WM_SYSCOLORCHANGE>,
                   public Handlers::Handler<WM_CLOSE> {
public:
    bool OnMenuCommand(WORD id) override;
    bool OnControlCommand(WORD id, HWND control, WORD code) override;
    bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    bool HandleSysColorChange() override { return false; }
    bool HandleClose() override;

protected:
    // A control was clicked. Returns false for a control that the dialog does not know.
    virtual bool OnClicked(WORD id) = 0;
};

}  // namespace WinLib::Dialog
