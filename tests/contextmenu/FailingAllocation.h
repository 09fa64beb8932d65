// Makes one allocation of a loaded module fail.
#pragma once

#include "contextmenu/ImportHook.h"

class FailingAllocation {
public:
    // Counts the module's allocations from now on; the one with this number fails, the first being 1. Only
    // one object may exist at a time.
    FailingAllocation(HMODULE module, int number);

    // Whether the module has come so far.
    bool HasFailed() const;

private:
    const ImportHook hook_;
};
