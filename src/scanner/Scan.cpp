#include "scanner/Scan.h"

#include "scanner/FlatLists.h"
#include "scanner/Path.h"
#include "scanner/PostProcessStage.h"
#include "scanner/Walk.h"
#include "winlib/Windows.h"

namespace Scanner {

namespace {

// Attributes, size and times stay zero if they cannot be read. That is no error: the enumeration decides
// whether the path can be read.
void FillRoot(Folder& root, const wchar_t* path, bool networkPaths) {
    WIN32_FILE_ATTRIBUTE_DATA data = {};
    if (!GetFileAttributesExW(VerbatimPath(path, networkPaths).c_str(), GetFileExInfoStandard, &data))
        data = {};
    root = {
        .parent = nullptr,
        .name = path,
        .extension = EmptyText,
        .fullName = path,
        .flags = 0,
        .attributes = data.dwFileAttributes,
        .depth = -1,
        .totalFolders = 0,
        .totalFiles = 0,
        .folderCount = 0,
        .fileCount = 0,
        .size = uint64_t{data.nFileSizeHigh} << 32 | data.nFileSizeLow,
        .timeCreated = data.ftCreationTime,
        .lastTimeAccessed = data.ftLastAccessTime,
        .lastTimeWritten = data.ftLastWriteTime,
    };
}

bool ScanOrThrow(Result& result, const Options& options, const std::wstring& path) {
    const std::wstring normalised = JoinPath(path, L"");
    result.root.folder = result.records.Allocate();
    FillRoot(*result.root.folder, result.strings.Duplicate(normalised.c_str()), options.networkPaths);

    FlatLists lists;
    FlatLists* const flatLists = options.flatten ? &lists : nullptr;
    return Walk(result, options, flatLists).Run(normalised) &&
           RunPostProcessStage(result.root, options, flatLists);
}

}  // namespace

bool Scan(Result& result, const Options& options, const std::wstring& path) {
    try {
        return ScanOrThrow(result, options, path);
    } catch (...) {
        return false;
    }
}

}  // namespace Scanner
