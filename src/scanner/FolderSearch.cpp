#include "scanner/FolderSearch.h"

#include "scanner/Path.h"

namespace Scanner {

FindHandle FolderSearch::Open(const std::wstring& path, WIN32_FIND_DATAW& entry) {
    query_ = VerbatimPath(path, networkPaths_).append(L"\\*");
    FindHandle handle = Find(entry);
    if (!handle && level_ == FindExInfoBasic && GetLastError() == ERROR_NOT_SUPPORTED) {
        level_ = FindExInfoStandard;
        flags_ = 0;
        handle = Find(entry);
    }
    return handle;
}

FindHandle FolderSearch::Find(WIN32_FIND_DATAW& entry) const {
    return FindHandle(
        FindFirstFileExW(query_.c_str(), level_, &entry, FindExSearchNameMatch, nullptr, flags_));
}

}  // namespace Scanner
