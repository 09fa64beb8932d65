// The options of a scan: which entries it keeps, in which shape and order. The engine knows no presets:
// ScanOptions (listmaker/) makes these from one.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace Scanner {

class Listener;

// The classes of entries to leave out, one bit each.
enum AttributeMask : uint8_t {
    SkipReadOnly = 1 << 0,
    SkipArchive = 1 << 1,
    SkipCompressed = 1 << 2,
    SkipEncrypted = 1 << 3,
    SkipHidden = 1 << 4,
    SkipReparsePoint = 1 << 5,
    SkipSystem = 1 << 6,
    SkipTemporary = 1 << 7,
};

// What a sort key compares. The number 0 is not used.
enum class Comparison : uint32_t {
    Path = 1,
    Name = 2,
    Extension = 3,
    Size = 4,
    TimeCreated = 5,
    LastTimeAccessed = 6,
    LastTimeWritten = 7,
    NumberOfFolders = 8,
    NumberOfFiles = 9,
    NumberOfFoldersAndFiles = 10,
};

struct SortKey {
    Comparison key;
    bool ascending;
};

struct Options {
    bool collectFolders = false;  // fill the flat list of folders
    bool collectFiles = false;    // fill the flat list of files
    bool recursive = false;       // descend into subfolders
    bool networkPaths = false;    // open paths as \\server\share; they are not found otherwise
    bool flatten = false;         // replace the tree by two flat lists
    std::wstring searchPattern;   // see Patterns.h
    std::vector<std::wstring> excludedFolders;
    uint8_t attributeMask = 0;  // of AttributeMask
    bool naturalSort = false;   // digits compare as numbers
    std::vector<SortKey> folderSortKeys;
    std::vector<SortKey> fileSortKeys;
    Listener* listener = nullptr;  // not owned, never null in a scan
};

}  // namespace Scanner
