#include "MessageWatch.h"

#include "resources/resource.h"

namespace {

thread_local MessageWatch* current = nullptr;

}  // namespace

MessageWatch::MessageWatch(AtMessage atMessage) : atMessage_(std::move(atMessage)) {
    current = this;
    hook_ = SetWindowsHookExW(WH_CBT, OnHook, nullptr, GetCurrentThreadId());
}

MessageWatch::~MessageWatch() {
    UnhookWindowsHookEx(hook_);
    current = nullptr;
    for (const auto& [window, procedure] : procedures_)
        SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure));
}

void MessageWatch::Include(HWND window) {
    procedures_[window] = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(Procedure)));
}

LRESULT CALLBACK MessageWatch::OnHook(int code, WPARAM wParam, LPARAM lParam) {
    if (code == HCBT_CREATEWND && current != nullptr)
        current->Include(reinterpret_cast<HWND>(wParam));
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

LRESULT CALLBACK MessageWatch::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    MessageWatch& watch = *current;
    const WNDPROC procedure = watch.procedures_.at(window);
    if (message == WM_NCDESTROY) {
        watch.procedures_.erase(window);
        if (watch.dialog_ == window)
            watch.dialog_ = nullptr;
        SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure));
        return CallWindowProcW(procedure, window, message, wParam, lParam);
    }
    watch.atMessage_(window, message);
    const LRESULT result = CallWindowProcW(procedure, window, message, wParam, lParam);
    if (message == WM_INITDIALOG && GetDlgItem(window, IDC_PROGRESS_CANCEL) != nullptr) {
        watch.dialog_ = window;
        watch.atMessage_(window, WM_NULL);
    }
    return result;
}
