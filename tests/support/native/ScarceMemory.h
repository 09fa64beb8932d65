// Makes allocations fail.
#pragma once

#include <cstddef>

// While one exists, allocations with new on this thread fail if they ask for at least so many bytes, once the
// first `spared` of these have succeeded. What the stand-in for Win32 allocates never fails.
class ScarceMemory {
public:
    explicit ScarceMemory(std::size_t bytes, int spared = 0);
    ~ScarceMemory();
    ScarceMemory(const ScarceMemory&) = delete;
    ScarceMemory& operator=(const ScarceMemory&) = delete;

    // Whether an allocation has failed.
    static bool HasStruck();

    // How many allocations of this thread are not freed yet, those of the stand-in aside. For differences.
    static long Live();
};
