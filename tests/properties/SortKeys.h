// Random lists of sort keys.
#pragma once

#include <vector>

#include "scanner/Options.h"
#include "support/Random.h"

// A few keys in any order and direction, each at most once. Extensions are for files, counts for folders.
inline std::vector<Scanner::SortKey> RandomKeys(Random& random, bool folderMode) {
    using Scanner::Comparison;
    std::vector<Comparison> all = {Comparison::Path,
                                   Comparison::Name,
                                   Comparison::Size,
                                   Comparison::TimeCreated,
                                   Comparison::LastTimeAccessed,
                                   Comparison::LastTimeWritten};
    if (folderMode)
        all.insert(all.end(), {Comparison::NumberOfFolders, Comparison::NumberOfFiles,
                               Comparison::NumberOfFoldersAndFiles});
    else
        all.push_back(Comparison::Extension);
    random.Shuffle(all);
    all.resize(random.Below(5));

    std::vector<Scanner::SortKey> keys;
    for (const Comparison key : all)
        keys.push_back({key, random.Bool()});
    return keys;
}
