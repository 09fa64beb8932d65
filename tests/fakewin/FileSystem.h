// The tree of the file calls: entries, and the lookup of a path. Not thread safe by itself;
// Files.cpp guards it.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include <windows.h>

namespace FakeWin::Internal {

struct Entry;

// Names are compared without regard to case.
struct NameHash {
    using is_transparent = void;
    size_t operator()(std::wstring_view name) const;
    size_t operator()(const Entry* entry) const;
};
struct NameEqual {
    using is_transparent = void;
    bool operator()(const Entry* first, const Entry* second) const;
    bool operator()(std::wstring_view name, const Entry* entry) const;
    bool operator()(const Entry* entry, std::wstring_view name) const { return (*this)(name, entry); }
};

// What only a folder has. A million files must fit, so each keeps as little as it can.
struct FolderPart {
    std::vector<std::shared_ptr<Entry>> children;  // in the order in which they were added
    std::unordered_set<Entry*, NameHash, NameEqual> byName;
};

struct Entry : std::enable_shared_from_this<Entry> {
    std::wstring name;
    DWORD attributes = 0;
    FILETIME created = {};
    FILETIME accessed = {};
    FILETIME written = {};
    uint64_t size = 0;
    std::unique_ptr<std::string> contents;  // null: as many zero bytes as the size says
    std::unique_ptr<FolderPart> folder;     // null for a file
};

// A path in its one form: "C:" or "\\server\share", and below it the names, each after a backslash. An error
// means that the system refuses the path by its form alone.
struct ParsedPath {
    DWORD error = 0;
    std::wstring text;
    size_t rootLength = 0;
    bool atVolume = false;  // \\?\C: without a backslash, which names the volume and not its root folder

    bool IsRoot() const { return text.size() == rootLength; }

    // The last name, and the path without it. Not of a root.
    std::wstring_view Name() const { return std::wstring_view(text).substr(text.rfind(L'\\') + 1); }
    ParsedPath Folder() const;

    // How reports and faults name it: the root of a drive has a backslash.
    std::wstring Subject() const { return error == 0 && IsRoot() ? text + L"\\" : text; }
};

// With allowWildcards the last name may hold * and ?. A path that is refused keeps its text as given.
ParsedPath ParsePath(std::wstring_view path, bool allowWildcards);

// Whether a name meets a mask with * and ?, without regard to case.
bool MatchesMask(std::wstring_view name, std::wstring_view mask);

class FileSystem {
public:
    FileSystem();
    ~FileSystem();
    FileSystem(const FileSystem&) = delete;
    FileSystem& operator=(const FileSystem&) = delete;

    // Null if there is none; error is then 2 if the name is missing, 3 if a folder on the way to it is, or
    // why the path is refused.
    std::shared_ptr<Entry> Find(const ParsedPath& path, DWORD& error) const;

    // Finds or makes the entry, and the folders above it. Throws std::invalid_argument where a test asks for
    // what cannot be.
    Entry& Make(const ParsedPath& path, bool folder);

    bool Remove(const ParsedPath& path);

private:
    std::shared_ptr<Entry> root_;  // its children are the drives and shares

    // The folder that was looked up last: most paths lie in it, and a path may have thousands of names.
    mutable std::wstring lastPath_;
    mutable std::shared_ptr<Entry> last_;
};

}  // namespace FakeWin::Internal
