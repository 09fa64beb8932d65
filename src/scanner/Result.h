// The result of a scan, finished or not: the arenas and the tree that points into them. Belongs to one thread
// and is destroyed as a whole, the tree first.
#pragma once

#include <cstdint>

#include "scanner/RecordPool.h"
#include "scanner/Records.h"
#include "scanner/StringPool.h"

namespace Scanner {

struct Result {
    RecordPool records;
    StringPool strings;
    Node root;  // root.folder is null until a scan has begun

    // Below the root so far, for reports on a running scan.
    uint64_t foundFolders = 0;
    uint64_t foundFiles = 0;
};

}  // namespace Scanner
