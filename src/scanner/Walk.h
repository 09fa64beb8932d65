// The walk of one scan through the file system, depth first, in the order in which the file system returns
// the names. An explicit stack takes the place of recursion, so that the depth of a tree costs heap alone.
// Junctions are entered like any folder, and nothing looks for circles.
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

// A folder that is still to be read.
struct WorkItem {
    Node* node;         // never moves: the list that holds it has its final size
    std::wstring path;  // without the \\?\ prefix
    int32_t depth;
};

class Walk {
public:
    // The lists are filled as far as the options collect them; null when nothing is to be flattened. Result,
    // options and lists must outlive the walk.
    Walk(Result& result, const Options& options, FlatLists* flatLists);

    // Reads everything below result.root, whose record is filled and whose path is path, into the result.
    // Returns false if the scan is over: cancelled, or failed and reported as such. Throws std::bad_alloc.
    bool Run(const std::wstring& path);

private:
    void ReadFolder(const WorkItem& item);
    void Fail(const wchar_t* message, const std::wstring& path);
    void OnRefused(const WorkItem& item);
    bool IsCancelled(const std::wstring& path);
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
    bool quiet_ = false;  // ask no more about refused folders

    // Of the folder at hand, kept for their memory.
    std::vector<Folder*> newFolders_;
    std::vector<File*> newFiles_;
    std::wstring fullPath_;
};

}  // namespace Scanner
