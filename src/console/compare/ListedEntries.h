// A list in JSON Lines, as "compare" needs it.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace Console {

struct ListedEntry {
    std::string_view path;    // UTF-8, in the memory of its ListedEntries
    std::string_view sha256;  // hexadecimal; empty if the list has none
    uint64_t size = 0;
    uint64_t modified = 0;  // in 100 ns since 1601; 0 for none
    bool isFolder = false;
};

struct ListedEntries {
    std::string root;
    std::vector<ListedEntry> entries;  // in the order of their paths, byte by byte

    // The texts of the entries. A block stays where it is.
    std::vector<std::unique_ptr<char[]>> texts;
};

// Reads a list. Members that it does not know are skipped. Throws Error: if the file cannot be read, if it is
// no list, and, with ExitCode::Incomplete, if it is not complete.
ListedEntries ReadListedEntries(const std::wstring& name);

}  // namespace Console
