#include "unit/scanner/ScarceMemory.h"

#include <cstdint>
#include <cstdlib>
#include <new>

namespace {

thread_local std::size_t smallestToFail = SIZE_MAX;
thread_local int sparedAllocations = 0;
thread_local bool hasStruck = false;

}  // namespace

ScarceMemory::ScarceMemory(std::size_t bytes, int spared) {
    smallestToFail = bytes;
    sparedAllocations = spared;
    hasStruck = false;
}

ScarceMemory::~ScarceMemory() {
    smallestToFail = SIZE_MAX;
}

bool ScarceMemory::HasStruck() {
    return hasStruck;
}

// All forms, since under a sanitizer none of them calls another.

void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    if (size >= smallestToFail && sparedAllocations-- <= 0) {
        hasStruck = true;
        return nullptr;
    }
    return std::malloc(size);
}

void* operator new(std::size_t size) {
    if (void* const memory = operator new(size, std::nothrow))
        return memory;
    throw std::bad_alloc();
}

void* operator new[](std::size_t size) {
    return operator new(size);
}

void operator delete(void* memory) noexcept {
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}

void operator delete(void* memory, const std::nothrow_t&) noexcept {
    std::free(memory);
}

void operator delete[](void* memory) noexcept {
    std::free(memory);
}

void operator delete[](void* memory, std::size_t) noexcept {
    std::free(memory);
}
