// Keeps other processes of this program, in the session of the user, from the presets while one reads or
// changes them. The window program takes no part.
#pragma once

#include "winlib/Windows.h"

namespace Console {

class PresetLock {
public:
    // Waits until no other process has the lock. Throws Error if there can be no lock, and Cancelled on
    // Ctrl+C.
    PresetLock();
    PresetLock(const PresetLock&) = delete;
    PresetLock& operator=(const PresetLock&) = delete;
    ~PresetLock();

private:
    const HANDLE mutex_;
};

}  // namespace Console
