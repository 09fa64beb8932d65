// Whole lists of a folder on the disk, compared byte by byte with files written by hand.
#include <gtest/gtest.h>

#include "endtoend/Program.h"
#include "support/TempFolder.h"

using EndToEnd::ExpectedList;
using EndToEnd::FirstDifference;
using EndToEnd::ListsFolder;
using EndToEnd::RunProgram;
using EndToEnd::StoredPreset;
using EndToEnd::WithoutStamp;

namespace {

// Two folders, one of them empty, one below, and four files of 3583 bytes in all.
class List : public testing::Test {
protected:
    List() {
        folder_.AddFile(L"Alpha\\one.txt", 1536);
        folder_.AddFile(L"Alpha\\Deep\\two.tar.gz", 0);
        folder_.AddFolder(L"Beta");
        folder_.AddFile(L"read only.txt", 1024, FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_ARCHIVE);
        folder_.AddFile(L"\u00DCn\u00EF.txt", 1023);
        const SYSTEMTIME moment = {2021, 3, 4, 4, 5, 6, 7, 0};
        FILETIME time;
        SystemTimeToFileTime(&moment, &time);
        for (const wchar_t* name :
             {L"Alpha\\one.txt", L"Alpha\\Deep\\two.tar.gz", L"read only.txt", L"\u00DCn\u00EF.txt"})
            folder_.SetTimes(name, time, time, time);
    }

    // Runs the program on the folder and compares the list with the expected one, in which {path} means
    // the folder and {stamp} for the moment of writing.
    void Expect(const StoredPreset& preset, const std::string& expectedName) {
        ASSERT_EQ(RunProgram(preset.Key + L" \"" + folder_.Path() + L"\""), 0u);
        const std::vector<std::wstring> lists = EndToEnd::FilesIn(ListsFolder());
        ASSERT_EQ(lists.size(), 1u);
        std::string expected = ExpectedList(expectedName);
        const std::string path(folder_.Path().begin(), folder_.Path().end());
        for (size_t at; (at = expected.find("{path}")) != std::string::npos;)
            expected.replace(at, 6, path);
        const std::string actual = WithoutStamp(EndToEnd::ReadFile(ListsFolder() + L"\\" + lists[0]));
        EXPECT_TRUE(expected == actual) << FirstDifference(expected, actual);
    }

    TestSupport::TempFolder folder_;
};

TEST_F(List, GroupedTextWithStatisticsAndDetails) {
    StoredPreset preset;
    preset.Set(L"Display", L"SearchSubfolders", 1u)
        .Set(L"Display", L"ShowStatistics", 1u)
        .FolderColumns({L"Number", L"Name", L"Size", L"Attributes", L"NumberOfFolders", L"NumberOfFiles",
                        L"NumberOfFoldersAndFiles"})
        .FileColumns({L"Number", L"Filename", L"FilenameWithoutExtension", L"Extension", L"Size",
                      L"Attributes", L"LastTimeWritten"});
    Expect(preset, "grouped.txt");
}

TEST_F(List, FlatTextSortedByNameDescendingWithoutMark) {
    StoredPreset preset;
    preset.Set(L"Format", L"EnableUtf8", 0u)
        .Set(L"Display", L"SearchSubfolders", 1u)
        .Set(L"Display", L"ShowFlatStyle", 1u)
        .Set(L"Display", L"SizeStyle", L"Bytes")
        .FolderColumns({L"PathAndName", L"NumberOfFiles"})
        .FileColumns({L"Number", L"Path", L"Filename", L"Size"})
        .FileSort({{L"Path", L"Ascending"}, {L"Name", L"Descending"}});
    Expect(preset, "flat.txt");
}

TEST_F(List, GroupedHtmlWithHeadings) {
    StoredPreset preset;
    preset.Set(L"Format", L"ListStyle", L"Html")
        .Set(L"Display", L"SearchSubfolders", 1u)
        .Set(L"Display", L"IndentSize", 2u)
        .FolderColumns({L"Name"})
        .FileColumns({L"Filename"});
    Expect(preset, "grouped.html");
}

TEST_F(List, FlatHtmlSortedByNameWithStatisticsAndWithoutHeadings) {
    StoredPreset preset;
    preset.Set(L"Format", L"ListStyle", L"Html")
        .Set(L"Format", L"EnableUtf8", 0u)
        .Set(L"Display", L"SearchSubfolders", 1u)
        .Set(L"Display", L"ShowFlatStyle", 1u)
        .Set(L"Display", L"ShowStatistics", 1u)
        .Set(L"Display", L"SizeStyle", L"Bytes")
        .Set(L"Columns", L"ShowHeaders", 0u)
        .FolderColumns({L"Number", L"Name", L"Size"})
        .FileColumns({L"Number", L"Path", L"Filename"})
        .FolderSort({{L"Name", L"Ascending"}})
        .FileSort({{L"Name", L"Ascending"}});
    Expect(preset, "flat.html");
}

}  // namespace
