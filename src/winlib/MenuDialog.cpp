#include "winlib/MenuDialog.h"

namespace WinLib::Dialog {

bool MenuDialog::OnMenuCommand(WORD id) {
    return ModalController::OnControlCommand(id, nullptr, BN_CLICKED);
}

bool MenuDialog::OnControlCommand(WORD id, HWND control, WORD code) {
    if (code == BN_CLICKED && OnClicked(id))
        return true;
    return ModalController::OnControlCommand(id, control, code);
}

bool MenuDialog::OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    switch (message) {
        case WM_SYSCOLORCHANGE:
            return Handler<WM_SYSCOLORCHANGE>::Dispatch(wParam, lParam, result);
        case WM_CLOSE:
            return Handler<WM_CLOSE>::Dispatch(wParam, lParam, result);
        default:
            return ModalController::OnMessage(message, wParam, lParam, result);
    }
}

bool MenuDialog::HandleClose() {
    EndDialog(Handle, 1);
    return true;
}

}  // namespace WinLib::Dialog
