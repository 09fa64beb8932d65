// The memory of the records of one scan. All of them are freed with the pool.
#pragma once

#include <cstddef>

#include "scanner/Arena.h"
#include "scanner/Records.h"

namespace Scanner {

class RecordPool {
public:
    static constexpr size_t BlockCapacity = 4681;  // just fits into 512 KiB

    // Returns an uninitialised record. Throws std::bad_alloc.
    Record* Allocate() { return arena_.Allocate(1); }

private:
    Arena<Record, BlockCapacity> arena_;
};

}  // namespace Scanner
