// Makes allocations fail.
#pragma once

#include <climits>
#include <cstddef>

// While one exists, allocations with new on this thread fail if they ask for at least so many bytes: the
// first `spared` of these succeed, then this many fail, all others succeed again. What the stand-in for Win32
// allocates never fails.
class ScarceMemory {
public:
    explicit ScarceMemory(size_t bytes, int spared = 0, int failing = INT_MAX);
    ~ScarceMemory();
    ScarceMemory(const ScarceMemory&) = delete;
    ScarceMemory& operator=(const ScarceMemory&) = delete;

    // Whether an allocation has failed, and whether one has done so with an exception.
    static bool HasStruck();
    static bool HasThrown();

    // How many allocations this thread has made, and how many are not freed yet, those of the stand-in aside.
    // For differences.
    static long Made();
    static long Live();
};
