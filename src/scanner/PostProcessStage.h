// The last stage of a scan: completes the tree that the walk has built for the writers.
#pragma once

#include "scanner/FlatLists.h"
#include "scanner/Options.h"
#include "scanner/Records.h"

namespace Scanner {

// Computes the totals and sorts the tree. If options.flatten is set, replaces everything below the root by
// the two lists, which must then be given and are consumed. Before each step asks the listener whether the
// scan is cancelled, and reports the step. Returns false if cancelled. Throws std::bad_alloc, and
// std::invalid_argument for a sort key without a comparison.
bool RunPostProcessStage(Node& root, const Options& options, FlatLists* flatLists);

}  // namespace Scanner
