// The last stage of a scan: from the tree as the walk left it to what the writers read.
#pragma once

#include "scanner/FlatLists.h"
#include "scanner/Options.h"
#include "scanner/Records.h"

namespace Scanner {

// Completes the totals and sorts the tree, and, if the options flatten it, replaces what lies below the root
// by the two lists, which are given when options.flatten is set and consumed. Reports each step to the
// listener and asks it before each whether the scan is cancelled. Returns false if it is. Throws
// std::bad_alloc, and std::invalid_argument for a sort key without a comparison.
bool CompleteTree(Node& root, const Options& options, FlatLists* flatLists);

}  // namespace Scanner
