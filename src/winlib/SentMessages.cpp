#include "winlib/SentMessages.h"

#include "winlib/Windows.h"

namespace WinLib {

void WaitServingSentMessages(const std::function<bool()>& done) {
    for (;;) {
        // First, since a worker that is about to be done often hangs on one last message.
        MSG unused;
        PeekMessageW(&unused, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);
        if (done())
            return;
        Sleep(25);
    }
}

}  // namespace WinLib
