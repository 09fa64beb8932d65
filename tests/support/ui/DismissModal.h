// Answers the dialogs and message boxes that stop a test's thread. A call such as MessageBoxW or a modal
// dialog does not return by itself: who makes it in a test puts one of these objects in front.
#pragma once

#include <atomic>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "winlib/Windows.h"

namespace Ui {

// What a dialog said when it was answered.
struct SeenDialog {
    std::wstring caption;
    std::wstring text;  // of its static controls, one after the other
    HWND owner;
};

// For dialogs of the thread that makes this object. Each one that is activated while it lives, and was not
// there before, is handed to the action once, from within the dialog's own message loop.
class DismissModal {
public:
    explicit DismissModal(std::function<void(HWND dialog)> action);

    // The action that presses the button with this id.
    explicit DismissModal(WORD button);

    DismissModal(const DismissModal&) = delete;
    DismissModal& operator=(const DismissModal&) = delete;
    ~DismissModal();

    const std::vector<SeenDialog>& Seen() const { return seen_; }

private:
    static LRESULT CALLBACK OnHook(int code, WPARAM wParam, LPARAM lParam);
    static void CALLBACK OnTimer(HWND, UINT, UINT_PTR timer, DWORD);

    std::function<void(HWND)> action_;
    std::vector<HWND> known_;
    std::vector<HWND> waiting_;
    std::vector<SeenDialog> seen_;
    DismissModal* outer_;
    HHOOK hook_;
};

// For message boxes of any other thread of this process, as a worker shows them: presses the button with this
// id in each that appears while the object lives. look gets each box before, on a thread of this object.
class DismissFromAside {
public:
    explicit DismissFromAside(
        WORD button, std::function<void(HWND box)> look = [](HWND) {});
    DismissFromAside(const DismissFromAside&) = delete;
    DismissFromAside& operator=(const DismissFromAside&) = delete;
    ~DismissFromAside();

    std::vector<SeenDialog> Seen() const;

private:
    void Watch(WORD button, DWORD spared);

    const std::function<void(HWND)> look_;
    mutable std::mutex mutex_;
    std::vector<SeenDialog> seen_;
    std::atomic<bool> stopped_ = false;
    std::thread watcher_;
};

}  // namespace Ui
