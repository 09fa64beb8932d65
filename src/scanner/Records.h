// The outcome of a scan: a record for each folder and file, and the nodes that link the records into a tree.
// Records are plain data in the arenas of a Scanner::Result and own nothing; their texts are NUL-terminated
// UTF-16 in the arena of strings.
#pragma once

#include <cstdint>
#include <vector>

#include "winlib/Windows.h"

namespace Scanner {

// One type for folders and files, so that comparators take either. In a file totalFolders and totalFiles are
// not set.
struct Record {
    enum Flags : uint32_t {
        AccessDenied = 1,  // the file system refused to enumerate this folder
    };

    Record* parent;            // the folder that contains this one; null for the root only
    const wchar_t* name;       // a folder's name, the root's whole path, a file's name without extension
    const wchar_t* extension;  // the text after a file's last dot; EmptyText if there is none
    const wchar_t* fullName;   // the name as reported by the file system
    uint32_t flags;
    uint32_t attributes;    // dwFileAttributes, unchanged
    int32_t depth;          // -1 for the root, 0 for its direct contents
    uint64_t totalFolders;  // anywhere below
    uint64_t totalFiles;
    uint64_t folderCount;  // directly in this folder
    uint64_t fileCount;
    uint64_t size;  // in bytes; of a folder the sum of all files below it
    FILETIME timeCreated;
    FILETIME lastTimeAccessed;
    FILETIME lastTimeWritten;
};

// A scan may hold millions of them.
static_assert(sizeof(Record) == 112);

using Folder = Record;
using File = Record;

// What a text field without text points at.
inline constexpr wchar_t EmptyText[] = L"";

// A folder with its direct contents. The tree may be thousands of levels deep; it is destroyed without
// recursion.
struct Node {
    Folder* folder = nullptr;
    std::vector<Node> folders;
    std::vector<File*> files;

    Node() = default;
    explicit Node(Folder* record) : folder(record) {}
    Node(Node&&) noexcept = default;
    Node& operator=(Node&&) noexcept = default;
    ~Node() {
        if (!folders.empty())
            DestroyBelow();
    }

private:
    void DestroyBelow() noexcept;
};

}  // namespace Scanner
