// The guard value and the failure functions of -fstack-protector and _FORTIFY_SOURCE. They replace those of
// the compiler's library, which gets the guard from the system's cryptography before main. That would load
// DLLs: in a program before the search for DLLs is limited, in the handler module while the loader's lock is
// held.

#include <cstdint>
#include <initializer_list>

#include "winlib/Windows.h"

extern "C" {
uintptr_t __stack_chk_guard;
[[gnu::noreturn]] void __stack_chk_fail();
[[gnu::noreturn]] void __chk_fail();
}

namespace {

// Ends the process at once (fast-fail interrupt). No exception handler runs, since an attacker may have
// replaced it.
[[noreturn]] void FailFast(unsigned code) {
    asm volatile("int $0x29" : : "c"(code));
    __builtin_unreachable();
}

// Sets the guard from values that differ between processes. Runs before all other initialisers. It is not
// protected itself, because it changes the guard. The lowest byte stays 0, so that an overflowing string
// cannot contain the guard.
[[gnu::constructor(101), gnu::no_stack_protector]] void MakeGuard() {
    LARGE_INTEGER ticks = {};
    QueryPerformanceCounter(&ticks);
    FILETIME time = {};
    GetSystemTimeAsFileTime(&time);
    uintptr_t guard = 0;
    for (const uint64_t part :
         {static_cast<uint64_t>(ticks.QuadPart), uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime,
          uint64_t{GetCurrentProcessId()} << 32 | GetCurrentThreadId(), reinterpret_cast<uint64_t>(&ticks)}) {
        guard = (guard ^ part) * 0x9E3779B97F4A7C15;
        guard ^= guard >> 32;
    }
    __stack_chk_guard = guard & ~uintptr_t{0xFF};
}

}  // namespace

void __stack_chk_fail() {
    FailFast(FAST_FAIL_STACK_COOKIE_CHECK_FAILURE);
}

void __chk_fail() {
    FailFast(FAST_FAIL_RANGE_CHECK_FAILURE);
}
