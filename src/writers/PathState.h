// The position of the walk over a scan tree. Owned by WalkTree, read by the columns.
#pragma once

#include <cstdint>
#include <stack>
#include <string>
#include <string_view>

struct PathState {
    // Goes down: appends a folder's name, or at first the scanned path, to path.
    void Push(std::wstring_view piece);

    // Undoes the last Push. REQUIRES: a Push without its Pop.
    void Pop();

    // The number of the current row among its siblings, from 1.
    uint64_t folderNumber = 0;
    uint64_t fileNumber = 0;

    std::wstring path;  // of the folder whose children are being written
    std::stack<uint64_t> savedLengths;
};
