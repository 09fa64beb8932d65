// A program that overflows its arrays on request, compiled with the protection that the programs have.
//
//   overflow stack | array | guard

#include <cstdint>
#include <cstring>
#include <cwchar>

#include "winlib/Windows.h"

extern "C" uintptr_t __stack_chk_guard;

namespace {

char target[8];

// Writes this many characters into an array on the stack that has room for eight.
[[gnu::noinline]] int OverflowStack(int count) {
    volatile char room[8];
    for (int i = 0; i < count; ++i)
        room[i] = 'x';
    return room[0];
}

[[gnu::noinline]] void OverflowArray(const wchar_t* source, int count) {
    memcpy(target, source, static_cast<size_t>(count));
}

}  // namespace

// Without a fault it ends with 0, or with a part of the guard.
int wmain(int count, wchar_t** arguments) {
    const wchar_t* const fault = count > 1 ? arguments[1] : L"";
    if (wcscmp(fault, L"stack") == 0)
        OverflowStack(64 * count);
    if (wcscmp(fault, L"array") == 0)
        OverflowArray(fault, 5 * count);
    if (wcscmp(fault, L"guard") == 0)
        return static_cast<int>(__stack_chk_guard >> 8);
    return 0;
}
