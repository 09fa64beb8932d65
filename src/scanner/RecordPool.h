// Where the records of one scan live, until all of them are released with the pool.
#pragma once

#include <cstddef>

#include "scanner/Arena.h"
#include "scanner/Records.h"

namespace Scanner {

class RecordPool {
public:
    static constexpr std::size_t BlockCapacity = 4681;  // just fits into 512 KiB

    // An uninitialised record. Throws std::bad_alloc.
    Record* Allocate() { return arena_.Allocate(1); }

private:
    Arena<Record, BlockCapacity> arena_;
};

}  // namespace Scanner
