// The walk of a scan through the file system, depth first, in the order in which the file system returns the
// names. Uses an explicit stack: depth costs heap, not call stack. Junctions are entered like any folder;
// cycles are not detected.
#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <vector>

#include "scanner/FlatLists.h"
#include "scanner/FolderSearch.h"
#include "scanner/Options.h"
#include "scanner/Patterns.h"
#include "scanner/Result.h"
#include "winlib/Windows.h"

namespace Scanner {

// A folder that has yet to be read.
struct WorkItem {
    Node* node;         // stable: the list that holds it has its final size
    std::wstring path;  // without the \\?\ prefix
    int32_t depth;
};

class Walk {
public:
    // flatLists is null unless options.flatten is set; it is filled as options.collectFolders and
    // collectFiles say. Result, options and lists must outlive the walk.
    Walk(Result& result, const Options& options, FlatLists* flatLists);

    // Reads everything below result.root into the result. The record of the root must be filled; path is its
    // path. Returns false if the scan was cancelled, or has failed and was reported. Throws std::bad_alloc.
    bool Run(const std::wstring& path);

private:
    void ReadFolder(const WorkItem& item);
    void Fail(const wchar_t* message, const std::wstring& path);
    void OnRefused(const WorkItem& item);
    bool ReportProgressAndCheckCancel(const std::wstring& path);
    void TakeEntry(const WorkItem& item, const WIN32_FIND_DATAW& entry);
    void TakeFolder(const WorkItem& item, const WIN32_FIND_DATAW& entry);
    void TakeFile(const WorkItem& item, const WIN32_FIND_DATAW& entry);
    Record* NewRecord(const WorkItem& item, const WIN32_FIND_DATAW& entry);
    void StoreEntries(Node& node) const;
    void PushFolders(const WorkItem& item);

    Result& result_;
    const Options& options_;
    Listener& listener_;
    FlatLists* const flatLists_;
    const PatternList excludedFolders_;
    const PatternList searchPatterns_;
    const DWORD skippedAttributes_;

    FolderSearch search_;
    std::deque<WorkItem> stack_;
    DWORD lastTick_ = 0;
    bool keepGoing_ = true;
    bool quiet_ = false;  // do not ask about refused folders again

    // Of the current folder; members to reuse their memory.
    std::vector<Folder*> newFolders_;
    std::vector<File*> newFiles_;
    std::wstring fullPath_;
};

}  // namespace Scanner
