// Opens the enumerations of one scan in the cheapest way that the file system supports: without short names
// and with large buffers. After a refusal it keeps to the plain way, so that later folders take a single
// call.
#pragma once

#include <string>

#include "scanner/FindHandle.h"
#include "winlib/Windows.h"

namespace Scanner {

class FolderSearch {
public:
    // networkPaths as in Options.
    explicit FolderSearch(bool networkPaths) : networkPaths_(networkPaths) {}

    // Starts the enumeration of the folder at path, which has no \\?\ prefix, and stores its first entry in
    // entry. Returns an empty handle on failure; GetLastError has the cause.
    FindHandle Open(const std::wstring& path, WIN32_FIND_DATAW& entry);

private:
    FindHandle Find(WIN32_FIND_DATAW& entry) const;

    const bool networkPaths_;
    FINDEX_INFO_LEVELS level_ = FindExInfoBasic;
    DWORD flags_ = FIND_FIRST_EX_LARGE_FETCH;
    std::wstring query_;
};

}  // namespace Scanner
