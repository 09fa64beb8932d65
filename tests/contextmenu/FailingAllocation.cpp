#include "contextmenu/FailingAllocation.h"

#include <atomic>
#include <cstdlib>

namespace {

// Threads of the module may allocate as well.
std::atomic<int> left = 0;

void* Allocate(size_t size) {
    return --left == 0 ? nullptr : std::malloc(size);
}

}  // namespace

FailingAllocation::FailingAllocation(HMODULE module, int number) : hook_(module, "malloc", Allocate) {
    left = number;
}

bool FailingAllocation::HasFailed() const {
    return left <= 0;
}
