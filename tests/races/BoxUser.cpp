#include "BoxUser.h"

#include <algorithm>

#include "resources/resource.h"
#include "winlib/WindowText.h"

namespace {

constexpr int TextOfBox = 0xFFFF;

BOOL CALLBACK AppendWindow(HWND window, LPARAM list) {
    reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
    return TRUE;
}

bool IsBox(HWND window) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    return process == GetCurrentProcessId() && IsWindowVisible(window) &&
           GetDlgItem(window, IDOK) != nullptr && GetDlgItem(window, TextOfBox) != nullptr &&
           GetDlgItem(window, IDC_PROGRESS_CANCEL) == nullptr;
}

}  // namespace

BoxUser::~BoxUser() {
    stopped_ = true;
    thread_.join();
}

int BoxUser::TakeCount(const std::wstring& part) {
    const std::lock_guard lock(mutex_);
    return static_cast<int>(std::erase_if(
        texts_, [&](const std::wstring& text) { return text.find(part) != std::wstring::npos; }));
}

void BoxUser::Answer() {
    while (!stopped_) {
        std::vector<HWND> windows;
        EnumWindows(AppendWindow, reinterpret_cast<LPARAM>(&windows));
        for (const HWND window : windows)
            Consider(window);
        std::erase_if(answered_, [](HWND window) { return !IsWindow(window); });
        Sleep(5);  // windows of other threads cannot be waited for
    }
}

void BoxUser::Consider(HWND window) {
    if (std::find(answered_.begin(), answered_.end(), window) != answered_.end() || !IsBox(window))
        return;
    answered_.push_back(window);
    const std::wstring text = WinLib::GetWindowText(GetDlgItem(window, TextOfBox));
    {
        const std::lock_guard lock(mutex_);
        texts_.push_back(text);
    }
    PostMessageW(window, WM_COMMAND, IDOK, reinterpret_cast<LPARAM>(GetDlgItem(window, IDOK)));
}
