// All folders and all files of a scan, in the order in which the walk found them.
#pragma once

#include <vector>

#include "scanner/Records.h"

namespace Scanner {

struct FlatLists {
    std::vector<Folder*> folders;
    std::vector<File*> files;
};

}  // namespace Scanner
