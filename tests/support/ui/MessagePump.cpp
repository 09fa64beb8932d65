#include "support/ui/MessagePump.h"

#include <gtest/gtest.h>

namespace Ui {

MessagePump::MessagePump(HWND dialog)
    : filter_([dialog](MSG& message) { return IsDialogMessageW(dialog, &message) != FALSE; }) {}

void MessagePump::RunUntilIdle() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (filter_(message))
            continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

bool MessagePump::RunUntil(const std::function<bool()>& done, std::chrono::milliseconds deadline,
                           const std::string& what) {
    const auto end = std::chrono::steady_clock::now() + deadline;
    for (;;) {
        RunUntilIdle();
        if (done())
            return true;
        if (std::chrono::steady_clock::now() > end) {
            ADD_FAILURE() << "timed out waiting for " << what;
            return false;
        }
        // Wakes at once for a message; what another thread does without one is seen within the interval.
        MsgWaitForMultipleObjectsEx(0, nullptr, 10, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
    }
}

}  // namespace Ui
