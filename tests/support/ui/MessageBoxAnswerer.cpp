#include "support/ui/MessageBoxAnswerer.h"

#include <algorithm>
#include <utility>

namespace Ui {

namespace {

constexpr int TextOfBox = 0xFFFF;

bool IsMessageBox(HWND window) {
    return IsDialog(window) && IsWindowVisible(window) && GetDlgItem(window, IDOK) != nullptr &&
           GetDlgItem(window, TextOfBox) != nullptr;
}

}  // namespace

MessageBoxAnswerer::MessageBoxAnswerer(std::function<bool(HWND)> mayAnswer)
    : mayAnswer_(std::move(mayAnswer)),
      thread_([this, creator = GetCurrentThreadId()] { AnswerAll(creator); }) {}

MessageBoxAnswerer::~MessageBoxAnswerer() {
    stopped_ = true;
    thread_.join();
}

std::vector<SeenDialog> MessageBoxAnswerer::Seen() const {
    const std::lock_guard lock(mutex_);
    return seen_;
}

int MessageBoxAnswerer::TakeCount(const std::wstring& part) {
    const std::lock_guard lock(mutex_);
    return static_cast<int>(std::erase_if(
        seen_, [&](const SeenDialog& box) { return box.text.find(part) != std::wstring::npos; }));
}

void MessageBoxAnswerer::AnswerAll(DWORD creator) {
    while (!stopped_) {
        for (const HWND window : TopLevelWindows()) {
            DWORD process = 0;
            const DWORD thread = GetWindowThreadProcessId(window, &process);
            if (process == GetCurrentProcessId() && thread != creator && IsMessageBox(window))
                Answer(window);
        }
        std::erase_if(answered_, [](HWND window) { return !IsWindow(window); });
        Sleep(5);  // windows of other threads cannot be waited for
    }
}

void MessageBoxAnswerer::Answer(HWND box) {
    if (std::find(answered_.begin(), answered_.end(), box) != answered_.end() || !mayAnswer_(box))
        return;
    answered_.push_back(box);
    const SeenDialog seen = ReadDialog(box);
    {
        const std::lock_guard lock(mutex_);
        seen_.push_back(seen);
    }
    PressButton(box, IDOK);
}

}  // namespace Ui
