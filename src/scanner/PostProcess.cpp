#include "scanner/PostProcess.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace Scanner {

namespace {

struct Visit {
    Node* node;
    size_t nextChild;
};

// REQUIRES: the records of the children are complete.
void SumUp(const Node& node) {
    uint64_t size = 0;
    uint64_t totalFolders = node.folders.size();
    uint64_t totalFiles = node.files.size();
    for (const Node& child : node.folders) {
        size += child.folder->size;
        totalFolders += child.folder->totalFolders;
        totalFiles += child.folder->totalFiles;
    }
    for (const File* file : node.files)
        size += file->size;

    Folder& folder = *node.folder;
    folder.size = size;
    folder.totalFolders = totalFolders;
    folder.totalFiles = totalFiles;
    folder.folderCount = node.folders.size();
    folder.fileCount = node.files.size();
}

// A stable merge sort. Comparing texts is what a sort costs, and file systems often return names in order: a
// sorted list takes one comparison for each entry. Unlike std::stable_sort it stays within the list if a pair
// compares differently at two times, as after a failed comparison.
template <typename Iterator, typename Before>
void Sort(Iterator first, Iterator last, const Before& before) {
    if (last - first < 2)
        return;
    const Iterator middle = first + (last - first) / 2;
    Sort(first, middle, before);
    Sort(middle, last, before);
    if (before(*middle, *std::prev(middle)))
        std::inplace_merge(first, middle, last, before);
}

}  // namespace

void PostProcess(Node& root, const Comparator& folderComparator, const Comparator& fileComparator) {
    std::vector<Visit> visits = {{&root, 0}};
    while (!visits.empty()) {
        Visit& visit = visits.back();
        Node& node = *visit.node;
        if (visit.nextChild < node.folders.size()) {
            Node* const child = &node.folders[visit.nextChild++];
            visits.push_back({child, 0});
        } else {
            SumUp(node);
            SortFolders(node.folders, folderComparator);
            SortFiles(node.files, fileComparator);
            visits.pop_back();
        }
    }
}

void SortFolders(std::vector<Node>& folders, const Comparator& comparator) {
    if (comparator.HasKeys()) {
        Sort(
            folders.begin(), folders.end(),
            [&comparator](const Node& a, const Node& b) { return comparator.Compare(*a.folder, *b.folder); });
    }
}

void SortFiles(std::vector<File*>& files, const Comparator& comparator) {
    if (comparator.HasKeys())
        Sort(
            files.begin(), files.end(),
            [&comparator](const File* a, const File* b) { return comparator.Compare(*a, *b); });
}

}  // namespace Scanner
