// What the file calls of Files.cpp and ListFiles.cpp and the controls of FileControls.cpp share.
#pragma once

#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "FakeWin.h"
#include "FileSystem.h"

namespace FakeWin::Internal {

// Where the enumeration of a folder is to end.
struct BreakOff {
    int count;
    DWORD error;
};

struct FilesState {
    std::unique_ptr<FileSystem> tree;
    std::map<std::wstring, BreakOff> breakOffs;    // by folded subject, as the two maps below
    std::map<std::wstring, uint64_t> writeLimits;  // bytes
    std::map<std::wstring, int> writes;
    std::vector<std::wstring> writtenFiles;
    std::vector<std::wstring> openFiles;
    std::wstring tempPath;
    std::wstring modulePath;
    std::map<std::wstring, std::wstring> longPaths;  // by folded path
    std::optional<DWORD> tempPathResult;
};

std::mutex& FilesMutex();

// To be used under FilesMutex.
FilesState& Files();
void ForgetFinds();
std::vector<std::wstring> OpenFindSubjects();

// A path as a test gives it, however long: \\?\ is put in front.
ParsedPath TestPath(const std::wstring& path);

}  // namespace FakeWin::Internal
