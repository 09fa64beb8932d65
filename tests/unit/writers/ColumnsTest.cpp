#include "writers/Columns.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/Text.h"
#include "support/lists/ListSupport.h"
#include "writers/PathState.h"

namespace {

constexpr SYSTEMTIME Created = {2021, 3, 4, 4, 12, 34, 56, 0};
constexpr SYSTEMTIME Accessed = {1999, 12, 5, 31, 23, 59, 59, 0};
constexpr SYSTEMTIME Changed = {1970, 1, 4, 1, 0, 0, 0, 0};

FILETIME Ticks(uint64_t ticks) {
    return {static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
}

void SetTimes(Scanner::Record& record) {
    record.timeCreated = Ticks(132593348960000000);
    record.lastTimeAccessed = Ticks(125911583990000000);
    record.lastTimeWritten = Ticks(116444736000000000);
}

// C:\Data\Top\Sub with two folders and three files, of which "a.b.txt" is the current one. The walk's path
// differs from the records, so that a cell shows where it took its path from.
struct Cells : testing::Test {
    Cells() {
        Scanner::Node& top = tree.AddFolder(tree.root, L"Top");
        Scanner::Node& sub = tree.AddFolder(top, L"Sub");
        tree.AddFile(sub, L"one");
        tree.AddFile(sub, L"two");
        file = &tree.AddFile(sub, L"a.b.txt", 1536);
        tree.AddFile(tree.AddFolder(sub, L"x"), L"deeper");
        tree.AddFolder(sub, L"y");
        folder = sub.folder;
        file->attributes = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN;
        SetTimes(*folder);
        SetTimes(*file);
        state.folderNumber = 7;
        state.fileNumber = 12345678901;
        state.path = L"C:\\Walk";
    }

    std::string FolderCell(FolderColumn column, bool flat, const Scanner::Folder& record) const {
        return Written(
            ListPreset().Folders({column}).Flat(flat),
            [&](Writer& writer) {
                ASSERT_EQ(writer.folderColumns.size(), 1u);
                writer.folderColumns[0](writer, state, record);
            });
    }

    std::string FileCell(FileColumn column, bool flat, const Scanner::File& record) const {
        return Written(
            ListPreset().Files({column}).Flat(flat),
            [&](Writer& writer) {
                ASSERT_EQ(writer.fileColumns.size(), 1u);
                writer.fileColumns[0](writer, state, record);
            });
    }

    ScanTree tree;
    PathState state;
    Scanner::Folder* folder;
    Scanner::File* file;
};

TEST_F(Cells, FolderColumnsHoldWhatTheirTitlesSay) {
    struct Row {
        FolderColumn column;
        std::string title;
        std::string grouped;
        std::string flat;
    };
    const Row rows[] = {
        {FolderColumn::Number, "#", "7.", "7."},
        {FolderColumn::Path, "Path", "C:\\Walk", "C:\\Data\\Top"},
        {FolderColumn::Name, "Name", "Sub", "Sub"},
        {FolderColumn::PathAndName, "Path and Name", "C:\\Walk\\Sub", "C:\\Data\\Top\\Sub"},
        {FolderColumn::Size, "Size", "1.5 KiB", "1.5 KiB"},
        {FolderColumn::Attributes, "Attributes", "----", "----"},
        {FolderColumn::TimeCreated, "Created", ShownTime(Created), ShownTime(Created)},
        {FolderColumn::LastTimeAccessed, "Accessed", ShownTime(Accessed), ShownTime(Accessed)},
        {FolderColumn::LastTimeWritten, "Written", ShownTime(Changed), ShownTime(Changed)},
        {FolderColumn::NumberOfFolders, "# Folders", "2", "2"},
        {FolderColumn::NumberOfFiles, "# Files", "3", "3"},
        {FolderColumn::NumberOfFoldersAndFiles, "# Total", "5", "5"},
    };
    ASSERT_EQ(std::size(rows), FolderColumnCount);
    for (const Row& row : rows) {
        const std::vector<const wchar_t*> titles = FolderTitles(ListPreset().Folders({row.column}));
        ASSERT_EQ(titles.size(), 1u);
        EXPECT_EQ(TestSupport::Utf8(titles[0]), row.title);
        EXPECT_EQ(FolderCell(row.column, false, *folder), row.grouped) << row.title;
        EXPECT_EQ(FolderCell(row.column, true, *folder), row.flat) << row.title;
    }
}

TEST_F(Cells, FileColumnsHoldWhatTheirTitlesSay) {
    struct Row {
        FileColumn column;
        std::string title;
        std::string grouped;
        std::string flat;
    };
    const Row rows[] = {
        {FileColumn::Number, "#", "12345678901.", "12345678901."},
        {FileColumn::Path, "Path", "C:\\Walk", "C:\\Data\\Top\\Sub"},
        {FileColumn::Filename, "Filename", "a.b.txt", "a.b.txt"},
        {FileColumn::PathAndFilename, "Path and Filename", "C:\\Walk\\a.b.txt",
         "C:\\Data\\Top\\Sub\\a.b.txt"},
        {FileColumn::FilenameWithoutExtension, "Filename w/o Ext.", "a.b", "a.b"},
        {FileColumn::Extension, "Extension", "txt", "txt"},
        {FileColumn::Size, "Size", "1.5 KiB", "1.5 KiB"},
        {FileColumn::Attributes, "Attributes", "r-h-", "r-h-"},
        {FileColumn::TimeCreated, "Created", ShownTime(Created), ShownTime(Created)},
        {FileColumn::LastTimeAccessed, "Accessed", ShownTime(Accessed), ShownTime(Accessed)},
        {FileColumn::LastTimeWritten, "Written", ShownTime(Changed), ShownTime(Changed)},
    };
    ASSERT_EQ(std::size(rows), FileColumnCount);
    for (const Row& row : rows) {
        const std::vector<const wchar_t*> titles = FileTitles(ListPreset().Files({row.column}));
        ASSERT_EQ(titles.size(), 1u);
        EXPECT_EQ(TestSupport::Utf8(titles[0]), row.title);
        EXPECT_EQ(FileCell(row.column, false, *file), row.grouped) << row.title;
        EXPECT_EQ(FileCell(row.column, true, *file), row.flat) << row.title;
    }
}

TEST_F(Cells, FileWithoutExtensionHasAnEmptyExtension) {
    const Scanner::File& plain = tree.AddFile(tree.root, L"Makefile");
    EXPECT_EQ(FileCell(FileColumn::Extension, false, plain), "");
    EXPECT_EQ(FileCell(FileColumn::FilenameWithoutExtension, false, plain), "Makefile");
    EXPECT_EQ(FileCell(FileColumn::Filename, false, plain), "Makefile");
}

TEST_F(Cells, FlatPathOfAFileInTheScannedPathIsTheScannedPath) {
    const Scanner::File& top = tree.AddFile(tree.root, L"top.txt");
    EXPECT_EQ(FileCell(FileColumn::Path, true, top), "C:\\Data");
    EXPECT_EQ(FileCell(FileColumn::PathAndFilename, true, top), "C:\\Data\\top.txt");
}

TEST_F(Cells, FlatPathIsNotNormalised) {
    ScanTree odd(L"C:\\");
    const Scanner::File& top = odd.AddFile(odd.root, L"top.txt");
    EXPECT_EQ(FileCell(FileColumn::PathAndFilename, true, top), "C:\\\\top.txt");
}

TEST_F(Cells, FlatPathOfTheRootIsEmpty) {
    EXPECT_EQ(FolderCell(FolderColumn::Path, true, *tree.root.folder), "");
    EXPECT_EQ(FolderCell(FolderColumn::PathAndName, true, *tree.root.folder), "C:\\Data");
    EXPECT_EQ(FileCell(FileColumn::PathAndFilename, true, *tree.root.folder), "C:\\Data");
}

// Each piece of a flat path enters the stream by itself, so a lead surrogate at its end meets no backslash.
TEST_F(Cells, LeadSurrogateAtTheEndOfANameTakesTheBackslashOnlyInTheWalksPath) {
    ScanTree odd(std::wstring(L"C:\\") + static_cast<wchar_t>(0xD800));
    Scanner::Node& sub = odd.AddFolder(odd.root, L"Sub");
    const Scanner::File& inside = odd.AddFile(sub, L"f");
    EXPECT_EQ(FileCell(FileColumn::Path, true, inside), "C:\\\xE2\x90\x80\\Sub");
    state = PathState();
    state.Push(odd.root.folder->fullName);
    state.Push(L"Sub");
    EXPECT_EQ(FileCell(FileColumn::Path, false, inside), "C:\\\xE2\x91\x9CSub");
}

TEST_F(Cells, FolderThatWasNotListedShowsWhatItsRecordHolds) {
    Scanner::Folder& closed = *tree.AddFolder(tree.root, L"Closed").folder;
    closed.flags = Scanner::Record::AccessDenied;
    EXPECT_EQ(FolderCell(FolderColumn::Size, false, closed), "0 Bytes");
    EXPECT_EQ(FolderCell(FolderColumn::NumberOfFolders, false, closed), "0");
    EXPECT_EQ(FolderCell(FolderColumn::NumberOfFiles, false, closed), "0");
    EXPECT_EQ(FolderCell(FolderColumn::NumberOfFoldersAndFiles, false, closed), "0");
}

TEST_F(Cells, AttributesAreFourLettersInTheirPlaces) {
    struct Row {
        DWORD attributes;
        const char* letters;
    };
    const Row rows[] = {
        {0x00, "----"},
        {0x01, "r---"},
        {0x20, "-a--"},
        {0x02, "--h-"},
        {0x04, "---s"},
        {0x23, "rah-"},
        {0x16, "--hs"},
        {0x27, "rahs"},
        {0x10, "----"},
        {0x24, "-a-s"},
        {FILE_ATTRIBUTE_NORMAL, "----"},
        {~DWORD{0x27}, "----"},
    };
    for (const Row& row : rows) {
        file->attributes = row.attributes;
        folder->attributes = row.attributes;
        EXPECT_EQ(FileCell(FileColumn::Attributes, false, *file), row.letters) << row.attributes;
        EXPECT_EQ(FolderCell(FolderColumn::Attributes, true, *folder), row.letters) << row.attributes;
    }
}

TEST_F(Cells, TimeZeroIsTheYear1601) {
    file->timeCreated = Ticks(0);
    EXPECT_EQ(FileCell(FileColumn::TimeCreated, false, *file), ShownTime({1601, 1, 1, 1, 0, 0, 0, 0}));
}

std::string JoinedTitles(const std::vector<const wchar_t*>& titles) {
    std::string joined;
    for (const wchar_t* title : titles)
        joined += TestSupport::Utf8(title) + ";";
    return joined;
}

TEST(Columns, StandInTheOrderOfThePreset) {
    ListPreset preset;
    preset.Folders({FolderColumn::Size, FolderColumn::Name, FolderColumn::Number})
        .Files({FileColumn::LastTimeWritten, FileColumn::Filename});
    EXPECT_EQ(JoinedTitles(FolderTitles(preset)), "Size;Name;#;");
    EXPECT_EQ(MakeFolderColumns(preset).size(), 3u);
    EXPECT_EQ(JoinedTitles(FileTitles(preset)), "Written;Filename;");
    EXPECT_EQ(MakeFileColumns(preset).size(), 2u);
}

TEST(Columns, DisabledPositionsLeaveNoGap) {
    ListPreset preset;
    preset.Folders({FolderColumn::Size, FolderColumn::Name, FolderColumn::Number})
        .Files({FileColumn::Size, FileColumn::Path, FileColumn::Extension});
    preset.Get(Columns::FolderEnabled, 1) = false;
    preset.Get(Columns::FileEnabled, 0) = false;
    preset.Get(Columns::FileColumns, 10) = FileColumn::Number;
    preset.Get(Columns::FileEnabled, 10) = true;
    EXPECT_EQ(JoinedTitles(FolderTitles(preset)), "Size;#;");
    EXPECT_EQ(MakeFolderColumns(preset).size(), 2u);
    EXPECT_EQ(JoinedTitles(FileTitles(preset)), "Path;Extension;#;");
    EXPECT_EQ(MakeFileColumns(preset).size(), 3u);
}

TEST(Columns, TheSameColumnTwiceGivesTwoCells) {
    ListPreset preset;
    preset.Folders({FolderColumn::Name, FolderColumn::Name}).Files({FileColumn::Size, FileColumn::Size});
    EXPECT_EQ(JoinedTitles(FolderTitles(preset)), "Name;Name;");
    EXPECT_EQ(MakeFolderColumns(preset).size(), 2u);
    EXPECT_EQ(JoinedTitles(FileTitles(preset)), "Size;Size;");
    EXPECT_EQ(MakeFileColumns(preset).size(), 2u);
}

TEST(Columns, RefuseValuesOutsideTheirEnumerationWherePositionsAreEnabled) {
    ListPreset preset;
    preset.Folders({FolderColumn::Name, static_cast<FolderColumn>(FolderColumnCount)});
    preset.Files({static_cast<FileColumn>(FileColumnCount)});
    EXPECT_THROW(MakeFolderColumns(preset), std::exception);
    EXPECT_THROW(MakeFileColumns(preset), std::exception);
    preset.Get(Columns::FolderEnabled, 1) = false;
    preset.Get(Columns::FileEnabled, 0) = false;
    EXPECT_EQ(MakeFolderColumns(preset).size(), 1u);
    EXPECT_TRUE(MakeFileColumns(preset).empty());
}

}  // namespace
