// Completes the tree of a walk: sums and sorts each folder in one visit, children first.
#pragma once

#include <vector>

#include "scanner/Comparator.h"
#include "scanner/Records.h"

namespace Scanner {

// Puts totals, counts and sizes into the folder records of the whole tree and each folder's lists into order.
// Takes no part of the call stack for the depth of the tree. Throws std::bad_alloc.
void PostProcess(Node& root, const Comparator& folderComparator, const Comparator& fileComparator);

// Sort one list, keeping the order of what ties. A comparator without keys leaves it as it is.
void SortFolders(std::vector<Node>& folders, const Comparator& comparator);
void SortFiles(std::vector<File*>& files, const Comparator& comparator);

}  // namespace Scanner
