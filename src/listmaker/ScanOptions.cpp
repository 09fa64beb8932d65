#include "listmaker/ScanOptions.h"

#include <algorithm>
#include <array>

#include "scanner/SearchFilters.h"
#include "settings/Preset.h"

namespace {

using MetaTypes::Settings;
using Scanner::Comparison;

// What each sort key of a preset compares; the key's value is the index.
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

bool AnyEnabled(const Settings& columns, uint32_t row, uint32_t count) {
    for (uint32_t i = 0; i < count; i++)
        if (columns.Get<bool>(row, i))
            return true;
    return false;
}

// The row's pattern, or the preset's own in the row that has none. A damaged store may hold any number; one
// that names no row counts as the nearest that exists.
std::wstring SearchPattern(const Settings& filter) {
    const int32_t last = static_cast<int32_t>(Scanner::SearchFilters.size()) - 1;
    const int32_t row = std::clamp(filter.Get<int32_t>(Preset::FilterRow::PresetSearchPattern), 0, last);
    const std::wstring pattern = Scanner::SearchFilters[static_cast<size_t>(row)].pattern;
    return pattern.empty() ? filter.Get<std::wstring>(Preset::FilterRow::CustomSearchPattern) : pattern;
}

// The preset's keys in their order, the highest priority first. A key that names no comparison is left out.
template <typename Key, size_t N>
std::vector<Scanner::SortKey> SortKeys(const Settings& sorting, uint32_t keysRow, uint32_t ordersRow,
                                       const std::array<Comparison, N>& comparisons) {
    std::vector<Scanner::SortKey> sortKeys;
    for (size_t i = 0; i < N; i++) {
        const auto key = static_cast<uint32_t>(sorting.Get<Key>(keysRow, i));
        if (key >= N)
            continue;
        const bool ascending = sorting.Get<SortOrder>(ordersRow, i) == SortOrder::Ascending;
        sortKeys.push_back({comparisons[key], ascending});
    }
    return sortKeys;
}

}  // namespace

Scanner::Options ScanOptions(const Preset& preset, Scanner::Listener* listener) {
    const Settings display = preset.Section(Preset::Display);
    const Settings columns = preset.Section(Preset::Columns);
    const Settings filter = preset.Section(Preset::Filter);
    const Settings sorting = preset.Section(Preset::Sorting);

    Scanner::Options options;
    options.collectFolders = AnyEnabled(columns, Preset::ColumnsRow::FolderEnabled, FolderColumnCount);
    options.collectFiles = AnyEnabled(columns, Preset::ColumnsRow::FileEnabled, FileColumnCount);
    options.listener = listener;
    options.flatten = display.Get<bool>(Preset::DisplayRow::ShowFlatStyle);
    options.attributeMask = display.Get<bool>(Preset::DisplayRow::SearchHidden) ? 0 : Scanner::SkipHidden;
    options.recursive = display.Get<bool>(Preset::DisplayRow::SearchSubfolders);
    options.searchPattern = SearchPattern(filter);
    options.excludedFolders = filter.Get<std::vector<std::wstring>>(Preset::FilterRow::ExcludedFolders);
    options.naturalSort = sorting.Get<bool>(Preset::SortingRow::SortDigitsAsNumbers);
    // Even with no column a folder's place shows in a recursive list, by the order of what lies below it.
    if (options.collectFolders || options.recursive)
        options.folderSortKeys =
            SortKeys<FolderSortKey>(sorting, Preset::SortingRow::FolderSortKeys,
                                    Preset::SortingRow::FolderSortOrder, FolderComparisons);
    if (options.collectFiles)
        options.fileSortKeys = SortKeys<FileSortKey>(sorting, Preset::SortingRow::FileSortKeys,
                                                     Preset::SortingRow::FileSortOrder, FileComparisons);
    return options;
}
