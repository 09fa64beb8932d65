#include "Memory.h"

#include <malloc.h>

#include <algorithm>
#include <cstdlib>
#include <new>

namespace {

size_t live = 0;
size_t peak = 0;

}  // namespace

namespace Memory {

size_t Live() {
    return live;
}

size_t Peak() {
    return peak;
}

void ResetPeak() {
    peak = live;
}

}  // namespace Memory

// All forms, since under a sanitizer none of them calls another.

void* operator new(size_t size, const std::nothrow_t&) noexcept {
    void* const memory = std::malloc(size);
    live += malloc_usable_size(memory);
    peak = std::max(peak, live);
    return memory;
}

void* operator new(size_t size) {
    if (void* const memory = operator new(size, std::nothrow))
        return memory;
    throw std::bad_alloc();
}

void* operator new[](size_t size) {
    return operator new(size);
}

void operator delete(void* memory) noexcept {
    live -= malloc_usable_size(memory);
    std::free(memory);
}

void operator delete(void* memory, size_t) noexcept {
    operator delete(memory);
}

void operator delete(void* memory, const std::nothrow_t&) noexcept {
    operator delete(memory);
}

void operator delete[](void* memory) noexcept {
    operator delete(memory);
}

void operator delete[](void* memory, size_t) noexcept {
    operator delete(memory);
}
