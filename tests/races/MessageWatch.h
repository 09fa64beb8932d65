// Sees every message that reaches the windows of its thread before the window does: by that a test knows the
// moments of a dialog that comes, runs and goes. Belongs to the thread that makes it; one at a time.
#pragma once

#include <atomic>
#include <functional>
#include <map>

#include "winlib/Windows.h"

class MessageWatch {
public:
    // Windows that are created from now on are watched from their first message on.
    using AtMessage = std::function<void(HWND window, UINT message)>;
    explicit MessageWatch(AtMessage atMessage);
    MessageWatch(const MessageWatch&) = delete;
    MessageWatch& operator=(const MessageWatch&) = delete;
    ~MessageWatch();

    // Also watches a window that exists.
    void Include(HWND window);

    // The progress dialog while it is there with all its controls, else null. From any thread.
    HWND Dialog() const { return dialog_; }

private:
    static LRESULT CALLBACK OnHook(int code, WPARAM wParam, LPARAM lParam);
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    const AtMessage atMessage_;
    std::map<HWND, WNDPROC> procedures_;  // those that the windows had
    std::atomic<HWND> dialog_ = nullptr;
    HHOOK hook_;
};
