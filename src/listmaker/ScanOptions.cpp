#include "listmaker/ScanOptions.h"

#include <algorithm>
#include <array>

#include "settings/Preset.h"
#include "settings/SearchFilters.h"

namespace {

using MetaTypes::Field;
using Scanner::Comparison;

// The comparison of each sort key of a preset; the index is the key's value.
constexpr std::array<Comparison, FolderSortKeyCount> FolderComparisons = {
    Comparison::Path,
    Comparison::Name,
    Comparison::Size,
    Comparison::TimeCreated,
    Comparison::LastTimeAccessed,
    Comparison::LastTimeWritten,
    Comparison::NumberOfFolders,
    Comparison::NumberOfFiles,
    Comparison::NumberOfFoldersAndFiles,
};
constexpr std::array<Comparison, FileSortKeyCount> FileComparisons = {
    Comparison::Path,
    Comparison::Name,
    Comparison::Extension,
    Comparison::Size,
    Comparison::TimeCreated,
    Comparison::LastTimeAccessed,
    Comparison::LastTimeWritten,
};

template <typename Record, size_t N>
bool AnyEnabled(const Preset& preset, Field<Record, std::array<bool, N>> flags) {
    for (size_t i = 0; i < N; ++i)
        if (preset.Get(flags, i))
            return true;
    return false;
}

// Returns the pattern of the selected filter, or the preset's own pattern for the filter without one. Damaged
// settings may hold any number: it is clamped to the table.
std::wstring SearchPattern(const Preset& preset) {
    const int32_t last = static_cast<int32_t>(SearchFilters.size()) - 1;
    const int32_t row = std::clamp(preset.Get(Filter::PresetSearchPattern), 0, last);
    const std::wstring pattern = SearchFilters[static_cast<size_t>(row)].pattern;
    return pattern.empty() ? preset.Get(Filter::CustomSearchPattern) : pattern;
}

// Returns the preset's sort keys, the highest priority first, without keys outside the enumeration.
template <typename Record, typename Key, size_t N>
std::vector<Scanner::SortKey> SortKeys(const Preset& preset, Field<Record, std::array<Key, N>> keys,
                                       Field<Record, std::array<SortOrder, N>> orders,
                                       const std::array<Comparison, N>& comparisons) {
    std::vector<Scanner::SortKey> sortKeys;
    for (size_t i = 0; i < N; ++i) {
        const auto key = static_cast<uint32_t>(preset.Get(keys, i));
        if (key >= N)
            continue;
        const bool ascending = preset.Get(orders, i) == SortOrder::Ascending;
        sortKeys.push_back({comparisons[key], ascending});
    }
    return sortKeys;
}

}  // namespace

Scanner::Options ScanOptions(const Preset& preset, Scanner::Listener* listener) {
    Scanner::Options options;
    options.collectFolders = AnyEnabled(preset, Columns::FolderEnabled);
    options.collectFiles = AnyEnabled(preset, Columns::FileEnabled);
    options.listener = listener;
    options.flatten = preset.Get(Display::ShowFlatStyle);
    options.attributeMask = preset.Get(Display::SearchHidden) ? 0 : Scanner::SkipHidden;
    options.recursive = preset.Get(Display::SearchSubfolders);
    options.searchPattern = SearchPattern(preset);
    options.excludedFolders = preset.Get(Filter::ExcludedFolders);
    options.naturalSort = preset.Get(Sorting::SortDigitsAsNumbers);
    // Without columns too, the order of the folders shows in a recursive list, by the order of their
    // contents.
    if (options.collectFolders || options.recursive)
        options.folderSortKeys =
            SortKeys(preset, Sorting::FolderSortKeys, Sorting::FolderSortOrder, FolderComparisons);
    if (options.collectFiles)
        options.fileSortKeys =
            SortKeys(preset, Sorting::FileSortKeys, Sorting::FileSortOrder, FileComparisons);
    return options;
}
