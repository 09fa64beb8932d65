// A random tree of the stand-in's file system, with the faults that its folders have, kept a second time so
// that a fuzz program knows what a list of it must contain.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "fuzz/Input.h"
#include "winlib/Windows.h"

namespace Fuzz {

struct Entry {
    std::wstring name;
    bool isFolder = false;
    DWORD attributes = 0;
    uint64_t size = 0;

    // Of a folder.
    struct BreakOff {
        int count;  // of entries that come before it, "." and ".." included
        DWORD error;
    };
    std::vector<Entry> entries;     // in the order of the enumeration
    std::vector<DWORD> openErrors;  // one for each attempt to enumerate it, then no more
    std::optional<BreakOff> breakOff;
};

struct FakeTree {
    std::wstring path;  // canonical
    bool exists;        // as a folder that the engine can reach
    Entry root;
};

// Makes the tree in the stand-in from all that is left of the input.
FakeTree MakeTree(Input& input);

}  // namespace Fuzz
