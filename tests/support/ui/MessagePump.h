// The message loop of a test: runs on the test's thread until there is nothing left to do, or until something
// has come true. Dialogs get their keyboard navigation, as in the program's own loop.
#pragma once

#include <chrono>
#include <functional>
#include <string>

#include "winlib/Windows.h"

namespace Ui {

class MessagePump {
public:
    // What sees a message first; true means that it has been dealt with.
    using Filter = std::function<bool(MSG& message)>;

    // Offers each message to this dialog's IsDialogMessageW.
    explicit MessagePump(HWND dialog);
    explicit MessagePump(Filter filter) : filter_(std::move(filter)) {}

    // Returns when the queue of this thread is empty.
    void RunUntilIdle();

    // Returns true as soon as done() is true. After the deadline the test fails with what it waited for.
    bool RunUntil(const std::function<bool()>& done, std::chrono::milliseconds deadline,
                  const std::string& what);

private:
    Filter filter_;
};

}  // namespace Ui
