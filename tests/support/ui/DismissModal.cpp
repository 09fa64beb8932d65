#include "support/ui/DismissModal.h"

#include <algorithm>
#include <utility>

#include "winlib/WindowText.h"

namespace Ui {

namespace {

// The innermost object of this thread.
thread_local DismissModal* current = nullptr;

std::wstring ClassOf(HWND window) {
    wchar_t name[256] = {};
    GetClassNameW(window, name, 256);
    return name;
}

bool IsDialog(HWND window) {
    return ClassOf(window) == L"#32770";
}

BOOL CALLBACK AppendWindow(HWND window, LPARAM list) {
    reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
    return TRUE;
}

SeenDialog Read(HWND dialog) {
    SeenDialog seen = {WinLib::GetWindowText(dialog), L"", GetWindow(dialog, GW_OWNER)};
    std::vector<HWND> children;
    EnumChildWindows(dialog, AppendWindow, reinterpret_cast<LPARAM>(&children));
    for (const HWND child : children)
        if (ClassOf(child) == L"Static")
            seen.text += WinLib::GetWindowText(child);
    return seen;
}

void Press(HWND dialog, WORD button) {
    PostMessageW(dialog, WM_COMMAND, MAKEWPARAM(button, BN_CLICKED),
                 reinterpret_cast<LPARAM>(GetDlgItem(dialog, button)));
}

}  // namespace

DismissModal::DismissModal(std::function<void(HWND)> action)
    : action_(std::move(action)), outer_(std::exchange(current, this)) {
    EnumThreadWindows(GetCurrentThreadId(), AppendWindow, reinterpret_cast<LPARAM>(&known_));
    hook_ = SetWindowsHookExW(WH_CBT, OnHook, nullptr, GetCurrentThreadId());
}

DismissModal::DismissModal(WORD button) : DismissModal([button](HWND dialog) { Press(dialog, button); }) {}

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
        current->seen_.push_back(Read(dialog));
        current->action_(dialog);
    }
    if (current != nullptr && !current->waiting_.empty())
        SetTimer(nullptr, 0, USER_TIMER_MINIMUM, OnTimer);
}

DismissFromAside::DismissFromAside(WORD button, std::function<void(HWND)> look)
    : look_(std::move(look)),
      watcher_([this, button, spared = GetCurrentThreadId()] { Watch(button, spared); }) {}

DismissFromAside::~DismissFromAside() {
    stopped_ = true;
    watcher_.join();
}

std::vector<SeenDialog> DismissFromAside::Seen() const {
    const std::lock_guard lock(mutex_);
    return seen_;
}

void DismissFromAside::Watch(WORD button, DWORD spared) {
    std::vector<HWND> answered;
    while (!stopped_) {
        std::vector<HWND> windows;
        EnumWindows(AppendWindow, reinterpret_cast<LPARAM>(&windows));
        for (const HWND window : windows) {
            DWORD process = 0;
            const DWORD thread = GetWindowThreadProcessId(window, &process);
            if (process != GetCurrentProcessId() || thread == spared || !IsDialog(window) ||
                !IsWindowVisible(window) ||
                std::find(answered.begin(), answered.end(), window) != answered.end())
                continue;
            answered.push_back(window);
            look_(window);
            {
                const std::lock_guard lock(mutex_);
                seen_.push_back(Read(window));
            }
            Press(window, button);
        }
        Sleep(10);  // there is nothing to wait on for another thread's windows
    }
}

}  // namespace Ui
