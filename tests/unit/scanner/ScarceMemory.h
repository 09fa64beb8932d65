// Makes allocations fail.
#pragma once

#include <cstddef>

// While one exists, allocations with new on this thread fail if they ask for at least so many bytes, once the
// first `spared` of these have succeeded.
class ScarceMemory {
public:
    explicit ScarceMemory(std::size_t bytes, int spared = 0);
    ~ScarceMemory();
    ScarceMemory(const ScarceMemory&) = delete;
    ScarceMemory& operator=(const ScarceMemory&) = delete;

    // Whether an allocation has failed.
    static bool HasStruck();
};
