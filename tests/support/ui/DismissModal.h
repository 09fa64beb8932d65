// Answers the dialogs and message boxes that block a test's thread. A call such as MessageBoxW does not
// return by itself, so a test creates one of these objects before it.
#pragma once

#include <functional>
#include <vector>

#include "support/ui/SeenDialog.h"

namespace Ui {

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

}  // namespace Ui
