#include "winlib/SentMessages.h"

#include "winlib/Windows.h"

namespace WinLib {

void WaitServingSentMessages(const std::function<bool()>& done) {
    // A worker that is about to end often waits for one last message: it is served before done is called
    // first, and the worker gets the processor a few times before this thread sleeps.
    for (int asked = 0;; ++asked) {
        MSG unused;
        PeekMessageW(&unused, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);
        if (done())
            return;
        Sleep(asked < 100 ? 0 : 25);
    }
}

}  // namespace WinLib
