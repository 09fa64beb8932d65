// Opens the enumerations of one scan in the cheapest way that the file system supports: without short names
// and in large steps. Remembers what was refused once, so that later folders cost a single call.
#pragma once

#include <string>

#include "scanner/FindHandle.h"
#include "winlib/Windows.h"

namespace Scanner {

class FolderSearch {
public:
    // Starts the enumeration of the folder at path, which has no \\?\ prefix, and puts its first entry into
    // entry. If the handle owns nothing, GetLastError tells why.
    FindHandle Open(const std::wstring& path, WIN32_FIND_DATAW& entry);

private:
    FindHandle Find(WIN32_FIND_DATAW& entry) const;

    FINDEX_INFO_LEVELS level_ = FindExInfoBasic;
    DWORD flags_ = FIND_FIRST_EX_LARGE_FETCH;
    std::wstring query_;  // kept for its memory
};

}  // namespace Scanner
