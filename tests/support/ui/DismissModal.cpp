#include "support/ui/DismissModal.h"

#include <algorithm>
#include <utility>

namespace Ui {

namespace {

// The innermost object of this thread.
thread_local DismissModal* current = nullptr;

BOOL CALLBACK AppendWindow(HWND window, LPARAM list) {
    reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
    return TRUE;
}

}  // namespace

DismissModal::DismissModal(std::function<void(HWND)> action)
    : action_(std::move(action)), outer_(std::exchange(current, this)) {
    EnumThreadWindows(GetCurrentThreadId(), AppendWindow, reinterpret_cast<LPARAM>(&known_));
    hook_ = SetWindowsHookExW(WH_CBT, OnHook, nullptr, GetCurrentThreadId());
}

DismissModal::DismissModal(WORD button)
    : DismissModal([button](HWND dialog) { PressButton(dialog, button); }) {}

DismissModal::~DismissModal() {
    UnhookWindowsHookEx(hook_);
    current = outer_;
}

LRESULT CALLBACK DismissModal::OnHook(int code, WPARAM wParam, LPARAM lParam) {
    const HWND window = reinterpret_cast<HWND>(wParam);
    if (code == HCBT_ACTIVATE && current != nullptr && IsDialog(window)) {
        auto& known = current->known_;
        if (std::find(known.begin(), known.end(), window) == known.end()) {
            known.push_back(window);
            current->waiting_.push_back(window);
            // At this moment the dialog is not complete yet; the timer comes when its loop is idle.
            SetTimer(nullptr, 0, USER_TIMER_MINIMUM, OnTimer);
        }
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

void CALLBACK DismissModal::OnTimer(HWND, UINT, UINT_PTR timer, DWORD) {
    KillTimer(nullptr, timer);
    if (current == nullptr)
        return;
    for (const HWND dialog : std::exchange(current->waiting_, {})) {
        if (!IsWindow(dialog))
            continue;
        // On a busy machine the timer comes before the loop has shown the dialog, which then takes no input.
        if (!IsWindowVisible(dialog)) {
            current->waiting_.push_back(dialog);
            continue;
        }
        current->seen_.push_back(ReadDialog(dialog));
        current->action_(dialog);
    }
    if (current != nullptr && !current->waiting_.empty())
        SetTimer(nullptr, 0, USER_TIMER_MINIMUM, OnTimer);
}

}  // namespace Ui
