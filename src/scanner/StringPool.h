// Where the names of one scan live, as NUL-terminated UTF-16, until all of them are released with the pool.
#pragma once

#include <cstddef>

#include "scanner/Arena.h"

namespace Scanner {

class StringPool {
public:
    static constexpr std::size_t BlockCapacity = 131072;  // characters

    // Room for count characters, a terminating NUL among them. Throws std::bad_alloc, also when count is more
    // than a block can hold.
    wchar_t* Allocate(std::size_t count) { return arena_.Allocate(count); }

    // A copy of the NUL-terminated text. Throws as Allocate does.
    const wchar_t* Duplicate(const wchar_t* text);

private:
    Arena<wchar_t, BlockCapacity> arena_;
};

}  // namespace Scanner
