#include "settings/Templates.h"

#include <gtest/gtest.h>

#include "settings/OrderedArrays.h"

#include <vector>

#include "PresetValues.h"

namespace {

using FolderPairs = std::vector<std::pair<FolderColumn, bool>>;
using FilePairs = std::vector<std::pair<FileColumn, bool>>;
using FolderSorts = std::vector<std::pair<FolderSortKey, SortOrder>>;
using FileSorts = std::vector<std::pair<FileSortKey, SortOrder>>;

template <typename T, size_t N>
std::vector<int> Numbers(const std::array<T, N>& values) {
    std::vector<int> numbers;
    for (const T value : values)
        numbers.push_back(static_cast<int>(value));
    return numbers;
}

TEST(FillColumns, ListedColumnsStandFirstAndTheRestFollowsHidden) {
    std::array<FolderColumn, 12> columns;
    std::array<bool, 12> enabled;
    enabled.fill(true);
    FillColumns(FolderPairs{{FolderColumn::Size, true}, {FolderColumn::Path, true}}, columns, enabled);
    EXPECT_EQ(Numbers(columns), (std::vector<int>{4, 1, 0, 2, 3, 5, 6, 7, 8, 9, 10, 11}));
    EXPECT_EQ(Numbers(enabled), (std::vector<int>{1, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
}

TEST(FillColumns, AListedColumnMayBeHidden) {
    std::array<FileColumn, 11> columns;
    std::array<bool, 11> enabled;
    FillColumns(FilePairs{{FileColumn::LastTimeWritten, false}, {FileColumn::Number, true}}, columns,
                enabled);
    EXPECT_EQ(Numbers(columns), (std::vector<int>{10, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9}));
    EXPECT_EQ(Numbers(enabled), (std::vector<int>{0, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
}

TEST(FillColumns, AnEmptyListGivesAscendingNumbers) {
    std::array<FileColumn, 11> columns;
    std::array<bool, 11> enabled;
    enabled.fill(true);
    FillColumns(FilePairs{}, columns, enabled);
    EXPECT_EQ(Numbers(columns), (std::vector<int>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10}));
    EXPECT_EQ(Numbers(enabled), std::vector<int>(11, 0));
}

TEST(FillSortKeys, ListedKeysStandFirstAndTheRestFollowsAscending) {
    std::array<FolderSortKey, 9> keys;
    std::array<SortOrder, 9> orders;
    orders.fill(SortOrder::Descending);
    FillSortKeys(FolderSorts{{FolderSortKey::NumberOfFiles, SortOrder::Descending},
                             {FolderSortKey::Name, SortOrder::Ascending}},
                 keys, orders);
    EXPECT_EQ(Numbers(keys), (std::vector<int>{7, 1, 0, 2, 3, 4, 5, 6, 8}));
    EXPECT_EQ(Numbers(orders), (std::vector<int>{1, 0, 0, 0, 0, 0, 0, 0, 0}));
}

TEST(FillSortKeys, ACompleteListIsTakenAsItIs) {
    std::array<FileSortKey, 7> keys;
    std::array<SortOrder, 7> orders;
    FileSorts all;
    for (int number = 6; number >= 0; --number)
        all.emplace_back(static_cast<FileSortKey>(number), SortOrder::Descending);
    FillSortKeys(all, keys, orders);
    EXPECT_EQ(Numbers(keys), (std::vector<int>{6, 5, 4, 3, 2, 1, 0}));
    EXPECT_EQ(Numbers(orders), std::vector<int>(7, 1));
}

TEST(Templates, TheNamesStandInTheirOrder) {
    const std::vector<std::wstring> expected = {
        L"All files (Simple, Text)", L"All files (Simple, HTML)", L"All files (Details, HTML)",
        L"Audio-files (HTML)",       L"Video-files (HTML)",       L"Repository (Exclude .git, .svn and .hg)",
    };
    EXPECT_EQ(std::vector<std::wstring>(TemplateNames.begin(), TemplateNames.end()), expected);
}

// What all templates share; the sort arrays of the plain ones are a new preset's.
PresetValues TemplateValues(const std::wstring& name) {
    PresetValues values;
    values.name = name;
    values.position = 7;
    values.searchSubfolders = true;
    return values;
}

// Applied to a preset in which nothing is at its default, so that a value that the template forgot shows.
PresetValues Applied(uint32_t number) {
    Preset preset(L"key");
    ChangeEveryValue(preset);
    ApplyTemplate(preset, number);
    EXPECT_EQ(preset.Key(), L"key");
    return ValuesOf(preset);
}

TEST(Templates, SimpleText) {
    PresetValues expected = TemplateValues(L"All files (Simple, Text)");
    expected.showHeaders = false;
    ExpectEqual(Applied(0), expected);
}

TEST(Templates, SimpleHtml) {
    PresetValues expected = TemplateValues(L"All files (Simple, HTML)");
    expected.listStyle = ListStyle::Html;
    expected.indentSize = 2;
    expected.showHeaders = false;
    ExpectEqual(Applied(1), expected);
}

TEST(Templates, DetailsHtml) {
    PresetValues expected = TemplateValues(L"All files (Details, HTML)");
    expected.listStyle = ListStyle::Html;
    expected.showStatistics = true;
    expected.indentSize = 2;
    expected.showHeaders = true;
    expected.folderColumns = {0, 3, 4, 5, 1, 2, 6, 7, 8, 9, 10, 11};
    expected.folderEnabled = {1, 1, 1, 1, 0, 0, 0, 0, 0, 0, 0, 0};
    expected.fileColumns = {0, 3, 6, 7, 1, 2, 4, 5, 8, 9, 10};
    expected.fileEnabled = {1, 1, 1, 1, 0, 0, 0, 0, 0, 0, 0};
    ExpectEqual(Applied(2), expected);
}

PresetValues MediaValues(const std::wstring& name, int32_t pattern) {
    PresetValues expected = TemplateValues(name);
    expected.listStyle = ListStyle::Html;
    expected.showStatistics = true;
    expected.indentSize = 2;
    expected.showHeaders = false;
    expected.presetSearchPattern = pattern;
    expected.sortDigitsAsNumbers = true;
    expected.folderColumns = {2, 0, 1, 3, 4, 5, 6, 7, 8, 9, 10, 11};
    expected.fileColumns = {4, 0, 1, 2, 3, 5, 6, 7, 8, 9, 10};
    expected.folderSortOrder = std::vector<int>(9, 0);
    expected.fileSortOrder = std::vector<int>(7, 0);
    return expected;
}

TEST(Templates, AudioFiles) {
    ExpectEqual(Applied(3), MediaValues(L"Audio-files (HTML)", 1));
}

TEST(Templates, VideoFiles) {
    ExpectEqual(Applied(4), MediaValues(L"Video-files (HTML)", 2));
}

TEST(Templates, Repository) {
    PresetValues expected = TemplateValues(L"Repository (Exclude .git, .svn and .hg)");
    expected.listStyle = ListStyle::Html;
    expected.showStatistics = true;
    expected.indentSize = 2;
    expected.showHeaders = false;
    expected.excludedFolders = {L"?:\\System Volume Information", L"*\\.git", L"*\\.svn", L"*\\.hg"};
    expected.folderColumns = {2, 4, 0, 1, 3, 5, 6, 7, 8, 9, 10, 11};
    expected.folderEnabled = {1, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0};
    expected.fileColumns = {2, 6, 0, 1, 3, 4, 5, 7, 8, 9, 10};
    expected.fileEnabled = {1, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0};
    ExpectEqual(Applied(5), expected);
}

}  // namespace
