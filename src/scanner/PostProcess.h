// Computes the totals of a tree and sorts it, in one visit of each folder, children first.
#pragma once

#include <vector>

#include "scanner/Comparator.h"
#include "scanner/Records.h"

namespace Scanner {

// Stores totals, counts and sizes in the folder records of the whole tree and sorts the lists of each folder.
// Does not recurse. Throws std::bad_alloc.
void PostProcess(Node& root, const Comparator& folderComparator, const Comparator& fileComparator);

// Sort one list stably. A comparator without keys leaves it unchanged.
void SortFolders(std::vector<Node>& folders, const Comparator& comparator);
void SortFiles(std::vector<File*>& files, const Comparator& comparator);

}  // namespace Scanner
