// Where the walk over a scan tree stands. WriteList owns it; the columns read it.
#pragma once

#include <cstdint>
#include <stack>
#include <string>
#include <string_view>

struct PathState {
    // Steps down: joins a folder's name, or at first the scanned path, to path.
    void Push(std::wstring_view piece);

    // Steps back up to where the last Push was made.
    // REQUIRES: a Push that was not taken back yet.
    void Pop();

    // Place of the row in hand among its siblings, from 1.
    uint64_t folderNumber = 0;
    uint64_t fileNumber = 0;

    std::wstring path;  // of the folder whose children are being written
    std::stack<uint64_t> savedLengths;
};
