#include "DrivenProgress.h"

#include "resources/resource.h"
#include "support/ProgressDialog.h"

namespace {

constexpr UINT RunScript = WM_APP + 1;
constexpr UINT CloseDialog = WM_APP + 2;

}  // namespace

INT_PTR DrivenProgress::Run(std::function<void()> script) {
    DefineProgressDialog();
    script_ = std::move(script);
    HINSTANCE instance = GetModuleHandleW(nullptr);
    return WinLib::RunModal(*this, IDD_PROGRESS, nullptr, instance);
}

void DrivenProgress::Press(int id) {
    const HWND button = GetDlgItem(Handle, id);
    if (IsWindowEnabled(button))
        SendMessageW(Handle, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED), reinterpret_cast<LPARAM>(button));
}

bool DrivenProgress::OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    switch (message) {
        case WM_INITDIALOG:
            if (script_)
                PostMessageW(Handle, RunScript, 0, 0);
            return ProgressController::OnMessage(message, wParam, lParam, result);
        case RunScript:
            // The system would show it as soon as the queue is empty.
            ShowWindow(Handle, SW_SHOW);
            script_();
            // By way of the queue: a dialog that has ended meanwhile does not take it any more.
            PostMessageW(Handle, CloseDialog, 0, 0);
            return true;
        case CloseDialog:
            EndDialog(Handle, StaysOpen);
            return true;
        default:
            return ProgressController::OnMessage(message, wParam, lParam, result);
    }
}
