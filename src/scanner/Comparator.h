// The order of a list of folders or of files: a list of keys, the most important first. Built once for a scan
// and used by several sorts. Keeps no reference to records.
#pragma once

#include <vector>

#include "scanner/Options.h"
#include "scanner/Records.h"
#include "winlib/Windows.h"

namespace Scanner {

class Comparator;

// Returns a negative number, zero or a positive number if a comes before, ties with or comes after b.
using CompareFunction = int (*)(const Comparator& comparator, const Record& a, const Record& b);

class Comparator {
public:
    // A comparison that occurs a second time ends the list: it and the keys after it are ignored. Throws
    // std::invalid_argument for the comparison number 0.
    Comparator(const std::vector<SortKey>& keys, bool folderMode, bool naturalSort);

    // Whether there is no key, so that nothing is to be sorted.
    bool HasKeys() const { return !keys_.empty(); }

    // Returns whether a comes before b; false if all keys are equal.
    bool Compare(const Record& a, const Record& b) const;

    // Whether the records are folders; the comparison of paths depends on it.
    bool FolderMode() const { return folderMode_; }

    // Compares two texts in the order of the user's language, ignoring case.
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
