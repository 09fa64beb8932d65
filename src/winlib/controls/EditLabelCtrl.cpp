#include "winlib/controls/EditLabelCtrl.h"

namespace WinLib {

bool EditLabelCtrl::OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    switch (message) {
        case WM_GETDLGCODE:
            return Handler<WM_GETDLGCODE>::Dispatch(wParam, lParam, result);
        default:
            return Controller::OnMessage(message, wParam, lParam, result);
    }
}

bool EditLabelCtrl::HandleGetDlgCode(LRESULT& result) {
    result = DLGC_WANTALLKEYS;
    return true;
}

}  // namespace WinLib
