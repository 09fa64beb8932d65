#include "support/native/ScarceMemory.h"

#include <cstdint>
#include <cstdlib>
#include <new>

#include "fakewin/FakeWin.h"

namespace {

thread_local size_t smallestToFail = SIZE_MAX;
thread_local int sparedAllocations = 0;
thread_local int failingAllocations = 0;
thread_local bool hasStruck = false;
thread_local bool hasThrown = false;
thread_local long made = 0;
thread_local long live = 0;

void Free(void* memory) {
    if (memory != nullptr && !FakeWin::AllocatesForTheSystem())
        --live;
    std::free(memory);
}

}  // namespace

ScarceMemory::ScarceMemory(size_t bytes, int spared, int failing) {
    smallestToFail = bytes;
    sparedAllocations = spared;
    failingAllocations = failing;
    hasStruck = false;
    hasThrown = false;
}

ScarceMemory::~ScarceMemory() {
    smallestToFail = SIZE_MAX;
}

bool ScarceMemory::HasStruck() {
    return hasStruck;
}

bool ScarceMemory::HasThrown() {
    return hasThrown;
}

long ScarceMemory::Made() {
    return made;
}

long ScarceMemory::Live() {
    return live;
}

// All forms, since under a sanitizer none of them calls another.

void* operator new(size_t size, const std::nothrow_t&) noexcept {
    if (FakeWin::AllocatesForTheSystem())
        return std::malloc(size);
    if (size >= smallestToFail && sparedAllocations-- <= 0 && failingAllocations-- > 0) {
        hasStruck = true;
        return nullptr;
    }
    ++made;
    ++live;
    return std::malloc(size);
}

void* operator new(size_t size) {
    if (void* const memory = operator new(size, std::nothrow))
        return memory;
    hasThrown = true;
    throw std::bad_alloc();
}

void* operator new[](size_t size) {
    return operator new(size);
}

void operator delete(void* memory) noexcept {
    Free(memory);
}

void operator delete(void* memory, size_t) noexcept {
    Free(memory);
}

void operator delete(void* memory, const std::nothrow_t&) noexcept {
    Free(memory);
}

void operator delete[](void* memory) noexcept {
    Free(memory);
}

void operator delete[](void* memory, size_t) noexcept {
    Free(memory);
}
