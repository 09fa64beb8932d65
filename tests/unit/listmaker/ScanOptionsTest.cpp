#include "listmaker/ScanOptions.h"

#include <gtest/gtest.h>

#include "listmaker/ListMaker.h"
#include "settings/Preset.h"

namespace {

using Scanner::Comparison;

void EnableNoColumn(Preset& preset) {
    for (size_t i = 0; i < FolderColumnCount; ++i)
        preset.Get(Columns::FolderEnabled, i) = false;
    for (size_t i = 0; i < FileColumnCount; ++i)
        preset.Get(Columns::FileEnabled, i) = false;
}

std::vector<Comparison> Keys(const std::vector<Scanner::SortKey>& sortKeys) {
    std::vector<Comparison> keys;
    for (const Scanner::SortKey& sortKey : sortKeys)
        keys.push_back(sortKey.key);
    return keys;
}

TEST(ScanOptions, CollectFoldersIfAnyFolderColumnIsOn) {
    Preset preset(L"test");
    EnableNoColumn(preset);
    EXPECT_FALSE(ScanOptions(preset, nullptr).collectFolders);
    for (size_t i = 0; i < FolderColumnCount; ++i) {
        EnableNoColumn(preset);
        preset.Get(Columns::FolderEnabled, i) = true;
        EXPECT_TRUE(ScanOptions(preset, nullptr).collectFolders) << i;
        EXPECT_FALSE(ScanOptions(preset, nullptr).collectFiles) << i;
    }
}

TEST(ScanOptions, CollectFilesIfAnyFileColumnIsOn) {
    Preset preset(L"test");
    EnableNoColumn(preset);
    EXPECT_FALSE(ScanOptions(preset, nullptr).collectFiles);
    for (size_t i = 0; i < FileColumnCount; ++i) {
        EnableNoColumn(preset);
        preset.Get(Columns::FileEnabled, i) = true;
        EXPECT_TRUE(ScanOptions(preset, nullptr).collectFiles) << i;
        EXPECT_FALSE(ScanOptions(preset, nullptr).collectFolders) << i;
    }
}

TEST(ScanOptions, ReportToTheListener) {
    const Preset preset(L"test");
    ListMaker listener(preset, L"C:\\Data");
    EXPECT_EQ(ScanOptions(preset, &listener).listener, &listener);
}

TEST(ScanOptions, TakeTheSwitchesOfThePreset) {
    for (const bool on : {false, true}) {
        Preset preset(L"test");
        preset.Get(Display::ShowFlatStyle) = on;
        preset.Get(Display::SearchSubfolders) = !on;
        preset.Get(Sorting::SortDigitsAsNumbers) = on;
        const Scanner::Options options = ScanOptions(preset, nullptr);
        EXPECT_EQ(options.flatten, on);
        EXPECT_EQ(options.recursive, !on);
        EXPECT_EQ(options.naturalSort, on);
    }
}

TEST(ScanOptions, SkipHiddenEntriesAndNothingElseUnlessTheyAreSearched) {
    Preset preset(L"test");
    preset.Get(Display::SearchHidden) = false;
    EXPECT_EQ(ScanOptions(preset, nullptr).attributeMask, 1 << 4);
    preset.Get(Display::SearchHidden) = true;
    EXPECT_EQ(ScanOptions(preset, nullptr).attributeMask, 0);
}

TEST(ScanOptions, TakeThePatternOfTheChosenFilter) {
    const struct {
        int32_t row;
        const wchar_t* pattern;
    } rows[] = {
        {0, L"*"},
        {1, L"*.mp3:*.flac:*.wma:*.wav:*.au:*.ogg:*.mid"},
        {2, L"*.mpg:*.mpeg:*.mp4:*.avi:*.mkv:*.wmv:*.mov:*.ts:*.webm:*.m4v:*.mts"},
        {3, L"*.jpg:*.jpeg:*.png:*.bmp:*.gif:*.psd:*.tif:*.tiff"},
        {4, L"*.txt:*.rtf:*.pdf:*.doc:*.docx:*.xls:*.xlsx:*.ppt:*.pptx:*.ods:*.odt:*.odp"},
        {5, L"*.zip:*.7z:*.rar:*.arj:*.cab:*.ace:*.lzh:*.gz:*.tar:*.bz2"},
        {6, L"*.exe:*.dll:*.com:*.bat:*.msi:*.msp:*.cmd:*.scr:*.cpl"},
        {7, L".*"},
        {8, L"own*.txt"},
        // Only a damaged store holds these.
        {9, L"own*.txt"},
        {99, L"own*.txt"},
        {INT32_MAX, L"own*.txt"},
        {-1, L"*"},
        {INT32_MIN, L"*"},
    };
    for (const auto& row : rows) {
        Preset preset(L"test");
        preset.Get(Filter::PresetSearchPattern) = row.row;
        preset.Get(Filter::CustomSearchPattern) = L"own*.txt";
        EXPECT_EQ(ScanOptions(preset, nullptr).searchPattern, row.pattern) << row.row;
    }
}

TEST(ScanOptions, KeepAnEmptyCustomPatternEmpty) {
    Preset preset(L"test");
    preset.Get(Filter::PresetSearchPattern) = 8;
    preset.Get(Filter::CustomSearchPattern) = L"";
    EXPECT_EQ(ScanOptions(preset, nullptr).searchPattern, L"");
}

TEST(ScanOptions, CopyTheExcludedFoldersInTheirOrder) {
    const std::vector<std::wstring> folders = {L"?:\\Windows", L"", L"C:\\b", L"C:\\a", L"C:\\b"};
    Preset preset(L"test");
    preset.Get(Filter::ExcludedFolders) = folders;
    EXPECT_EQ(ScanOptions(preset, nullptr).excludedFolders, folders);
}

TEST(ScanOptions, TranslateTheFolderKeysInTheirOrder) {
    const struct {
        FolderSortKey key;
        Comparison comparison;
    } rows[] = {
        {FolderSortKey::NumberOfFoldersAndFiles, Comparison::NumberOfFoldersAndFiles},
        {FolderSortKey::Path, Comparison::Path},
        {FolderSortKey::NumberOfFiles, Comparison::NumberOfFiles},
        {FolderSortKey::Name, Comparison::Name},
        {FolderSortKey::LastTimeWritten, Comparison::LastTimeWritten},
        {FolderSortKey::Size, Comparison::Size},
        {FolderSortKey::LastTimeAccessed, Comparison::LastTimeAccessed},
        {FolderSortKey::TimeCreated, Comparison::TimeCreated},
        {FolderSortKey::NumberOfFolders, Comparison::NumberOfFolders},
    };
    Preset preset(L"test");
    std::vector<Comparison> expected;
    for (const auto& row : rows) {
        preset.Get(Sorting::FolderSortKeys, expected.size()) = row.key;
        expected.push_back(row.comparison);
    }
    EXPECT_EQ(Keys(ScanOptions(preset, nullptr).folderSortKeys), expected);
}

TEST(ScanOptions, TranslateTheFileKeysInTheirOrder) {
    const struct {
        FileSortKey key;
        Comparison comparison;
    } rows[] = {
        {FileSortKey::LastTimeWritten, Comparison::LastTimeWritten},
        {FileSortKey::Path, Comparison::Path},
        {FileSortKey::LastTimeAccessed, Comparison::LastTimeAccessed},
        {FileSortKey::Name, Comparison::Name},
        {FileSortKey::TimeCreated, Comparison::TimeCreated},
        {FileSortKey::Extension, Comparison::Extension},
        {FileSortKey::Size, Comparison::Size},
    };
    Preset preset(L"test");
    std::vector<Comparison> expected;
    for (const auto& row : rows) {
        preset.Get(Sorting::FileSortKeys, expected.size()) = row.key;
        expected.push_back(row.comparison);
    }
    EXPECT_EQ(Keys(ScanOptions(preset, nullptr).fileSortKeys), expected);
}

TEST(ScanOptions, SortAscendingOnlyWhereTheOrderSaysExactlyThat) {
    Preset preset(L"test");
    for (size_t i = 0; i < FolderSortKeyCount; ++i)
        preset.Get(Sorting::FolderSortOrder, i) = static_cast<SortOrder>(i % 3);
    for (size_t i = 0; i < FileSortKeyCount; ++i)
        preset.Get(Sorting::FileSortOrder, i) = static_cast<SortOrder>(i % 3);
    const Scanner::Options options = ScanOptions(preset, nullptr);
    ASSERT_EQ(options.folderSortKeys.size(), FolderSortKeyCount);
    for (size_t i = 0; i < FolderSortKeyCount; ++i)
        EXPECT_EQ(options.folderSortKeys[i].ascending, i % 3 == 0) << i;
    ASSERT_EQ(options.fileSortKeys.size(), FileSortKeyCount);
    for (size_t i = 0; i < FileSortKeyCount; ++i)
        EXPECT_EQ(options.fileSortKeys[i].ascending, i % 3 == 0) << i;
}

TEST(ScanOptions, LeaveOutKeysThatNameNoComparison) {
    Preset preset(L"test");
    preset.Get(Sorting::FolderSortKeys, 0) = static_cast<FolderSortKey>(9);
    preset.Get(Sorting::FolderSortKeys, 8) = static_cast<FolderSortKey>(0xFFFFFFFF);
    preset.Get(Sorting::FolderSortOrder, 1) = SortOrder::Descending;
    preset.Get(Sorting::FileSortKeys, 3) = static_cast<FileSortKey>(7);
    const Scanner::Options options = ScanOptions(preset, nullptr);
    ASSERT_EQ(options.folderSortKeys.size(), 7u);
    EXPECT_FALSE(options.folderSortKeys[0].ascending) << "each order stays with its key";
    EXPECT_EQ(options.fileSortKeys.size(), 6u);
}

TEST(ScanOptions, HaveFolderKeysOnlyWhenFoldersShowOrAreEntered) {
    const struct {
        bool folderColumn;
        bool recursive;
        size_t keys;
    } rows[] = {{false, false, 0}, {false, true, 9}, {true, false, 9}, {true, true, 9}};
    for (const auto& row : rows) {
        Preset preset(L"test");
        EnableNoColumn(preset);
        preset.Get(Columns::FolderEnabled, 11) = row.folderColumn;
        preset.Get(Display::SearchSubfolders) = row.recursive;
        EXPECT_EQ(ScanOptions(preset, nullptr).folderSortKeys.size(), row.keys)
            << row.folderColumn << " " << row.recursive;
    }
}

TEST(ScanOptions, HaveFileKeysOnlyWhenFilesShow) {
    for (const bool recursive : {false, true}) {
        Preset preset(L"test");
        EnableNoColumn(preset);
        preset.Get(Display::SearchSubfolders) = recursive;
        EXPECT_EQ(ScanOptions(preset, nullptr).fileSortKeys.size(), 0u);
        preset.Get(Columns::FileEnabled, 10) = true;
        EXPECT_EQ(ScanOptions(preset, nullptr).fileSortKeys.size(), 7u);
    }
}

TEST(ScanOptions, HaveNoKeysAtAllWithEveryColumnOffInASingleFolder) {
    Preset preset(L"test");
    EnableNoColumn(preset);
    preset.Get(Display::SearchSubfolders) = false;
    const Scanner::Options options = ScanOptions(preset, nullptr);
    EXPECT_TRUE(options.folderSortKeys.empty());
    EXPECT_TRUE(options.fileSortKeys.empty());
}

}  // namespace
