#include "winlib/SentMessages.h"

#include "winlib/Windows.h"

namespace WinLib {

void WaitServingSentMessages(const std::function<bool()>& done) {
    while (!done()) {
        MSG unused;
        PeekMessageW(&unused, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);
        Sleep(25);
    }
}

}  // namespace WinLib
