// The memory of the names of one scan, NUL-terminated UTF-16. All of them are freed with the pool.
#pragma once

#include <cstddef>

#include "scanner/Arena.h"

namespace Scanner {

class StringPool {
public:
    static constexpr size_t BlockCapacity = 131072;  // characters

    // Returns memory for count characters, which include the terminating NUL. Throws std::bad_alloc, also if
    // count exceeds the size of a block.
    wchar_t* Allocate(size_t count) { return arena_.Allocate(count); }

    // Returns a copy of the NUL-terminated text. Throws as Allocate.
    const wchar_t* Duplicate(const wchar_t* text);

private:
    Arena<wchar_t, BlockCapacity> arena_;
};

}  // namespace Scanner
