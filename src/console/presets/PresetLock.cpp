#include "console/presets/PresetLock.h"

#include "console/Errors.h"
#include "console/Interrupt.h"

namespace Console {

namespace {

constexpr wchar_t Name[] = L"Local\\Tamblewick presets";
constexpr DWORD Interval = 100;  // milliseconds between two looks at Ctrl+C

// Returns whether the thread has the mutex now. It does after a process has ended without releasing it, too:
// each preset is read on its own, so that no state is left to repair.
bool Wait(HANDLE mutex) {
    DWORD result;
    while ((result = WaitForSingleObject(mutex, Interval)) == WAIT_TIMEOUT)
        if (Interrupted())
            return false;
    return result == WAIT_OBJECT_0 || result == WAIT_ABANDONED;
}

}  // namespace

PresetLock::PresetLock() : mutex_(CreateMutexW(nullptr, FALSE, Name)) {
    if (mutex_ && Wait(mutex_))
        return;
    if (mutex_)
        CloseHandle(mutex_);
    ThrowIfInterrupted();
    throw Error(ExitCode::NotWritten,
                L"the presets cannot be locked against changes by other programs; try again");
}

PresetLock::~PresetLock() {
    ReleaseMutex(mutex_);
    CloseHandle(mutex_);
}

}  // namespace Console
