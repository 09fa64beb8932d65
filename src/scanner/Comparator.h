// The order of a list of folders or of files: a list of keys of falling priority, built once and called for
// each pair of records that a sort looks at. Holds nothing of the records and may be used by several sorts.
#pragma once

#include <vector>

#include "scanner/Options.h"
#include "scanner/Records.h"
#include "winlib/Windows.h"

namespace Scanner {

class Comparator;

// Negative, zero or positive as a stands before, beside or behind b.
using CompareFunction = int (*)(const Comparator& comparator, const Record& a, const Record& b);

class Comparator {
public:
    // A number that has been used before ends the list: the keys from there on count for nothing. Throws
    // std::invalid_argument for the number 0.
    Comparator(const std::vector<SortKey>& keys, bool folderMode, bool naturalSort);

    // Without keys there is nothing to sort by.
    bool HasKeys() const { return !keys_.empty(); }

    // Whether a must stand before b. All keys equal: false.
    bool Compare(const Record& a, const Record& b) const;

    // Whether the records are folders, which the comparison of paths has to know.
    bool FolderMode() const { return folderMode_; }

    // Two texts as the user's language orders them, without regard to case.
    int CompareText(const wchar_t* a, const wchar_t* b) const;

private:
    struct Key {
        CompareFunction function;
        bool ascending;
    };

    DWORD compareFlags_;
    bool folderMode_;
    std::vector<Key> keys_;
};

}  // namespace Scanner
