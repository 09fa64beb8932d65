#include "scanner/Comparator.h"

#include <array>
#include <cstddef>
#include <optional>
#include <stdexcept>

#include "scanner/AsciiCase.h"

namespace Scanner {

namespace {

template <typename Number>
int Order(Number a, Number b) {
    return (a > b) - (a < b);
}

int CompareByCode(const wchar_t* a, const wchar_t* b) {
    while (*a != L'\0' && LowerAscii(*a) == LowerAscii(*b)) {
        ++a;
        ++b;
    }
    return Order(LowerAscii(*a), LowerAscii(*b));
}

bool IsDigit(wchar_t c) {
    return c >= L'0' && c <= L'9';
}

// Returns the order of two texts whose first difference is a digit in both, as in numbered names; nothing for
// other texts. In every language it is the order of these digits: a digit outweighs all that follows it and
// never combines with the characters before it. Takes a fraction of the time of CompareStringW.
std::optional<int> CompareAtDigit(const wchar_t* a, const wchar_t* b) {
    while (*a != L'\0' && *a == *b) {
        ++a;
        ++b;
    }
    if (IsDigit(*a) && IsDigit(*b))
        return Order(*a, *b);
    return std::nullopt;
}

int CompareName(const Comparator& comparator, const Record& a, const Record& b) {
    return comparator.CompareText(a.name, b.name);
}

// Compares the folders from the root down: the records themselves in folder mode, their parents otherwise. A
// folder comes before its contents. Climbs from both records to the point where the two paths part, which is
// near for neighbours in the tree.
int ComparePath(const Comparator& comparator, const Record& a, const Record& b) {
    const Folder* const endOfA = comparator.FolderMode() ? &a : a.parent;
    const Folder* const endOfB = comparator.FolderMode() ? &b : b.parent;
    const Folder* folderA = endOfA;
    const Folder* folderB = endOfB;
    while (folderA->depth > folderB->depth)
        folderA = folderA->parent;
    while (folderB->depth > folderA->depth)
        folderB = folderB->parent;
    if (folderA == folderB)
        return Order(endOfA->depth, endOfB->depth);

    while (folderA->parent != folderB->parent) {
        folderA = folderA->parent;
        folderB = folderB->parent;
    }
    return CompareName(comparator, *folderA, *folderB);
}

int CompareExtension(const Comparator& comparator, const Record& a, const Record& b) {
    return comparator.CompareText(a.extension, b.extension);
}

int CompareSize(const Comparator&, const Record& a, const Record& b) {
    return Order(a.size, b.size);
}

int CompareTimeCreated(const Comparator&, const Record& a, const Record& b) {
    return CompareFileTime(&a.timeCreated, &b.timeCreated);
}

int CompareLastTimeAccessed(const Comparator&, const Record& a, const Record& b) {
    return CompareFileTime(&a.lastTimeAccessed, &b.lastTimeAccessed);
}

int CompareLastTimeWritten(const Comparator&, const Record& a, const Record& b) {
    return CompareFileTime(&a.lastTimeWritten, &b.lastTimeWritten);
}

int CompareFolderCount(const Comparator&, const Record& a, const Record& b) {
    return Order(a.folderCount, b.folderCount);
}

int CompareFileCount(const Comparator&, const Record& a, const Record& b) {
    return Order(a.fileCount, b.fileCount);
}

int CompareFolderAndFileCount(const Comparator&, const Record& a, const Record& b) {
    return Order(a.folderCount + a.fileCount, b.folderCount + b.fileCount);
}

// Indexed by Comparison.
constexpr std::array<CompareFunction, 11> Functions = {
    nullptr,
    ComparePath,
    CompareName,
    CompareExtension,
    CompareSize,
    CompareTimeCreated,
    CompareLastTimeAccessed,
    CompareLastTimeWritten,
    CompareFolderCount,
    CompareFileCount,
    CompareFolderAndFileCount,
};

}  // namespace

Comparator::Comparator(const std::vector<SortKey>& keys, bool folderMode, bool naturalSort)
    : compareFlags_(NORM_IGNORECASE), folderMode_(folderMode) {
    if (naturalSort)
        compareFlags_ |= SORT_DIGITSASNUMBERS;

    std::array<bool, Functions.size()> used = {};
    for (const SortKey& key : keys) {
        const auto number = static_cast<size_t>(key.key);
        if (number >= used.size() || used[number])
            break;
        if (Functions[number] == nullptr)
            throw std::invalid_argument("a sort key without a comparison");
        keys_.push_back({Functions[number], key.ascending});
        used[number] = true;
    }
}

bool Comparator::Compare(const Record& a, const Record& b) const {
    for (const Key& key : keys_) {
        const int order = key.function(*this, a, b);
        if (order != 0)
            return (order < 0) == key.ascending;
    }
    return false;
}

int Comparator::CompareText(const wchar_t* a, const wchar_t* b) const {
    if ((compareFlags_ & SORT_DIGITSASNUMBERS) == 0) {
        if (const std::optional<int> order = CompareAtDigit(a, b))
            return *order;
    }
    const int result = CompareStringW(LOCALE_USER_DEFAULT, compareFlags_, a, -1, b, -1);
    return result == 0 ? CompareByCode(a, b) : result - CSTR_EQUAL;
}

}  // namespace Scanner
