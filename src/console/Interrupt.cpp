#include "console/Interrupt.h"

#include <atomic>

#include "console/Errors.h"
#include "winlib/Windows.h"

namespace Console {

namespace {

std::atomic<bool> interrupted = false;

// Called on a thread of its own. The system ends the process as soon as the handler returns from the last
// three events, so it does not return: the process ends when the command has.
BOOL WINAPI OnEvent(DWORD event) {
    interrupted = true;
    if (event == CTRL_CLOSE_EVENT || event == CTRL_LOGOFF_EVENT || event == CTRL_SHUTDOWN_EVENT)
        Sleep(INFINITE);
    return TRUE;
}

}  // namespace

void CatchInterrupts() {
    interrupted = false;
    SetConsoleCtrlHandler(OnEvent, TRUE);
}

bool Interrupted() {
    return interrupted;
}

void ThrowIfInterrupted() {
    if (Interrupted())
        throw Cancelled();
}

}  // namespace Console
