// What a scan must find: the same walk once more, by the plainest means.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "fuzz/list/FakeTree.h"
#include "scanner/Listener.h"
#include "settings/Preset.h"

namespace Fuzz {

struct ExpectedRecord {
    const Entry* entry;
    std::wstring parentPath;
    size_t depth;
    uint64_t folderCount = 0;  // directly in it
    uint64_t fileCount = 0;
    uint64_t size = 0;
};

struct ExpectedScan {
    bool succeeds = true;
    std::vector<ExpectedRecord> records;  // in the order of the walk
    uint64_t totalFolders = 0;
    uint64_t totalFiles = 0;
    uint64_t totalSize = 0;
};

// For a listener that gives this answer at each refused folder and never cancels.
ExpectedScan Expect(const FakeTree& tree, const Preset& preset, Scanner::AccessDeniedAnswer answer);

}  // namespace Fuzz
