// The edit box of a tree's label in a dialog. Claims Enter and Esc from the dialog manager, so that they end
// the edit. Must be detached when the edit ends.
#pragma once

#include "winlib/Controller.h"

namespace WinLib {

class EditLabelCtrl : public Window::Controller, public Handlers::Handler<WM_GETDLGCODE> {
public:
    bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    bool HandleGetDlgCode(LRESULT& result) override;
};

}  // namespace WinLib
