// What the system keeps for each thread.
#include <atomic>

#include "Internal.h"

namespace {
thread_local DWORD lastError = 0;
}

DWORD GetLastError() {
    return lastError;
}

void SetLastError(DWORD error) {
    lastError = error;
}

DWORD GetCurrentThreadId() {
    static std::atomic<DWORD> last = 0;
    thread_local const DWORD id = ++last;
    return id;
}
