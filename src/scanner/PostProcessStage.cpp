#include "scanner/PostProcessStage.h"

#include <string>
#include <utility>
#include <vector>

#include "scanner/Comparator.h"
#include "scanner/Listener.h"
#include "scanner/PostProcess.h"

namespace Scanner {

namespace {

constexpr wchar_t Status[] = L"Post processing...";

std::wstring SortingList(const wchar_t* kind, size_t count) {
    return std::wstring(L"Sorting flattened ") + kind + L" list (" + std::to_wstring(count) + L" items)...";
}

void ReplaceFolders(Node& root, const std::vector<Folder*>& folders) {
    root.folders.clear();
    root.folders.reserve(folders.size());
    for (Folder* const folder : folders)
        root.folders.emplace_back(folder);
}

}  // namespace

bool RunPostProcessStage(Node& root, const Options& options, FlatLists* flatLists) {
    Listener& listener = *options.listener;
    const Comparator folderComparator(options.folderSortKeys, true, options.naturalSort);
    const Comparator fileComparator(options.fileSortKeys, false, options.naturalSort);

    if (!listener.IsCancelled()) {
        listener.OnProgress(Status, L"Recursively sorting folder and file list...");
        PostProcess(root, folderComparator, fileComparator);
    }
    if (!listener.IsCancelled() && options.flatten) {
        listener.OnProgress(Status, SortingList(L"folder", flatLists->folders.size()));
        ReplaceFolders(root, flatLists->folders);
        SortFolders(root.folders, folderComparator);
    }
    const bool keepGoing = !listener.IsCancelled();
    if (keepGoing && options.flatten) {
        listener.OnProgress(Status, SortingList(L"file", flatLists->files.size()));
        root.files = std::move(flatLists->files);
        SortFiles(root.files, fileComparator);
    }
    return keepGoing;
}

}  // namespace Scanner
