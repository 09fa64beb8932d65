// Scan trees put together by hand, and trees shown as text.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "scanner/FlatLists.h"
#include "scanner/Result.h"

// The contents of a folder.
struct TestEntry {
    bool isFolder;
    std::wstring name;
    uint64_t size;
    std::vector<TestEntry> entries;
};

inline TestEntry AFolder(std::wstring name, std::vector<TestEntry> entries = {}) {
    return {true, std::move(name), 0, std::move(entries)};
}
inline TestEntry AFile(std::wstring name, uint64_t size = 0) {
    return {false, std::move(name), size, {}};
}

// A result as a walk over C:\Root leaves it: records without totals. Folders have a size of 4096 of their
// own.
class TestTree {
public:
    explicit TestTree(const std::vector<TestEntry>& entries);

    Scanner::Node& Root() { return result_.root; }

    // All records in the order of the walk.
    Scanner::FlatLists Flat() const;

private:
    Scanner::Record* NewRecord(Scanner::Folder* parent, const TestEntry& entry);
    void Fill(Scanner::Node& node, const std::vector<TestEntry>& entries);

    Scanner::Result result_;
};

// The path of a record below the root.
std::wstring PathOf(const Scanner::Record& record);

// A line for each entry below the node, in the order of the tree: the files of a folder, then each of its
// folders, which end in a backslash, with what lies in it.
std::vector<std::wstring> Lines(const Scanner::Node& node);

// The same sorted, where the order is the file system's.
std::vector<std::wstring> SortedLines(const Scanner::Node& node);

// The record of a folder or file by its path below the root. Fails the test and throws if it is not there.
const Scanner::Record& Find(const Scanner::Node& root, const std::wstring& path);

// The names of the files or folders directly in a node.
std::vector<std::wstring> FileNames(const Scanner::Node& node);
std::vector<std::wstring> FolderNames(const Scanner::Node& node);
