#include "console/list/RowWriter.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "RowSupport.h"

namespace {

using Console::CsvOptions;
using Console::JsonLinesOptions;
using Console::RowOptions;
using RowSupport::CsvOf;
using RowSupport::JsonOf;
using RowSupport::OnlyCell;
using RowSupport::OnlyMember;
using RowSupport::PlainJson;
using RowSupport::RowsOf;

constexpr size_t Attributes = 5;
constexpr size_t Created = 6;
constexpr size_t Error = 12;

// The type and the path of each row.
std::vector<std::string> RowsIn(const std::string& csv) {
    std::vector<std::string> rows;
    std::string rest = RowsOf(csv);
    while (!rest.empty()) {
        const size_t end = rest.find(',', rest.find(',') + 1);
        rows.push_back(rest.substr(0, end));
        rest = rest.substr(rest.find("\r\n") + 2);
    }
    return rows;
}

ScanTree TwoLevels(const std::wstring& root = L"C:\\Data") {
    ScanTree tree(root);
    Scanner::Node& first = tree.AddFolder(tree.root, L"First");
    tree.AddFile(tree.AddFolder(first, L"Inner"), L"deep");
    tree.AddFolder(first, L"Empty");
    tree.AddFile(first, L"one");
    tree.AddFile(tree.AddFolder(tree.root, L"Second"), L"two");
    tree.AddFile(tree.root, L"top");
    return tree;
}

CsvOptions With(const RowOptions& rows) {
    CsvOptions options;
    options.rows = rows;
    return options;
}

using Rows = std::vector<std::string>;

TEST(RowWriter, GroupedRowsAreTheFolderThenItsFoldersThenItsFiles) {
    const Rows expected = {
        "directory,First", "directory,First\\Inner", "file,First\\Inner\\deep", "directory,First\\Empty",
        "file,First\\one", "directory,Second",       "file,Second\\two",        "file,top",
    };
    EXPECT_EQ(RowsIn(CsvOf(TwoLevels())), expected);
}

TEST(RowWriter, FlatRowsAreAllFoldersThenAllFilesWithTheirPaths) {
    ScanTree tree = TwoLevels();
    tree.Flatten();
    const Rows expected = {
        "directory,First",         "directory,First\\Inner", "directory,First\\Empty", "directory,Second",
        "file,First\\Inner\\deep", "file,First\\one",        "file,Second\\two",       "file,top",
    };
    EXPECT_EQ(RowsIn(CsvOf(tree, {}, true)), expected);
}

TEST(RowWriter, FilesHaveNoRowsIfTheyAreNotWanted) {
    const Rows folders = {"directory,First", "directory,First\\Inner", "directory,First\\Empty",
                          "directory,Second"};
    EXPECT_EQ(RowsIn(CsvOf(TwoLevels(), With({.folders = true, .files = false}))), folders);
}

TEST(RowWriter, FoldersHaveNoRowsIfTheyAreNotWanted) {
    const Rows files = {"file,First\\Inner\\deep", "file,First\\one", "file,Second\\two", "file,top"};
    EXPECT_EQ(RowsIn(CsvOf(TwoLevels(), With({.folders = false, .files = true}))), files);
}

TEST(RowWriter, AbsolutePathsBeginWithTheListedFolder) {
    const RowOptions absolute = {.folders = false, .files = true, .absolutePaths = true};
    struct Case {
        const wchar_t* root;
        Rows rows;
    };
    const Case cases[] = {
        {L"C:\\Data",
         {"file,C:\\Data\\First\\Inner\\deep", "file,C:\\Data\\First\\one", "file,C:\\Data\\Second\\two",
          "file,C:\\Data\\top"}},
        // The canonical form of the root of a drive.
        {L"C:",
         {"file,C:\\First\\Inner\\deep", "file,C:\\First\\one", "file,C:\\Second\\two", "file,C:\\top"}},
        {L"\\\\server\\share",
         {"file,\\\\server\\share\\First\\Inner\\deep", "file,\\\\server\\share\\First\\one",
          "file,\\\\server\\share\\Second\\two", "file,\\\\server\\share\\top"}},
    };
    for (const Case& test : cases) {
        ScanTree tree = TwoLevels(test.root);
        EXPECT_EQ(RowsIn(CsvOf(tree, With(absolute))), test.rows);
        tree.Flatten();
        EXPECT_EQ(RowsIn(CsvOf(tree, With(absolute), true)), test.rows);
    }
}

TEST(RowWriter, PathsAreTheSameInBothFormats) {
    ScanTree tree;
    tree.AddFile(tree.root, L"top");
    JsonLinesOptions options = PlainJson();
    EXPECT_EQ(OnlyMember(JsonOf(tree, options), "path"), "\"top\"");
    options.rows.absolutePaths = true;
    EXPECT_EQ(OnlyMember(JsonOf(tree, options), "path"), "\"C:\\\\Data\\\\top\"");
}

TEST(RowWriter, AttributesAreLettersInAFixedOrder) {
    struct Case {
        DWORD attributes;
        const char* letters;
    };
    const Case cases[] = {
        {0, ""},
        {FILE_ATTRIBUTE_NORMAL, ""},
        {FILE_ATTRIBUTE_DIRECTORY, ""},
        {0x1, "R"},
        {0x2, "H"},
        {0x4, "S"},
        {0x20, "A"},
        {0x400, "L"},
        {0x800, "C"},
        {0x4000, "E"},
        {0x1000, "O"},
        {0x100, ""},
        {0xFFFFFFFF, "RHSALCEO"},
        {0x1 | 0x20 | 0x1000, "RAO"},
    };
    for (const Case& test : cases) {
        ScanTree tree;
        tree.AddFile(tree.root, L"a").attributes = test.attributes;
        EXPECT_EQ(OnlyCell(CsvOf(tree), Attributes), test.letters) << test.attributes;
        EXPECT_EQ(OnlyMember(JsonOf(tree, PlainJson()), "attributes"),
                  "\"" + std::string(test.letters) + "\"");
    }
}

TEST(RowWriter, EachTimeHasItsField) {
    ScanTree tree;
    Scanner::File& file = tree.AddFile(tree.root, L"a");
    file.timeCreated = RowSupport::Ticks(132224078450000000);
    file.lastTimeWritten = RowSupport::Ticks(132675269500000000);
    file.lastTimeAccessed = RowSupport::Ticks(133099639941234567);
    const std::string csv = CsvOf(tree);
    EXPECT_EQ(OnlyCell(csv, Created), "2020-01-02T03:04:05.0000000Z");
    EXPECT_EQ(OnlyCell(csv, Created + 1), "2021-06-07T08:09:10.0000000Z");
    EXPECT_EQ(OnlyCell(csv, Created + 2), "2022-10-11T12:13:14.1234567Z");
}

TEST(RowWriter, ATimeThatIsNotSetIsEmpty) {
    ScanTree tree;
    tree.AddFile(tree.root, L"a");
    EXPECT_EQ(OnlyCell(CsvOf(tree), Created), "");
    EXPECT_EQ(OnlyMember(JsonOf(tree, PlainJson()), "created"), "\"\"");
}

TEST(RowWriter, OnlyRefusedFoldersHaveAnError) {
    ScanTree tree;
    Scanner::Node& folder = tree.AddFolder(tree.root, L"a");
    EXPECT_EQ(OnlyCell(CsvOf(tree), Error), "");
    folder.folder->flags = Scanner::Record::AccessDenied;
    EXPECT_EQ(OnlyCell(CsvOf(tree), Error), "access-denied");
    EXPECT_EQ(OnlyMember(JsonOf(tree, PlainJson()), "error"), "\"access-denied\"");
}

TEST(RowWriter, CountsOfAFolderAreThoseOfEverythingBelow) {
    ScanTree tree = TwoLevels();
    const std::string first = RowsOf(CsvOf(tree));
    EXPECT_EQ(first.substr(0, first.find("\r\n")), "directory,First,First,,0,,,,,2,2,0,");
}

TEST(RowWriter, DepthCountsFromTheListedFolder) {
    ScanTree tree;
    Scanner::Node* node = &tree.root;
    for (int depth = 0; depth < 12; ++depth)
        node = &tree.AddFolder(*node, L"d");
    tree.AddFile(*node, L"leaf");
    const std::string csv = CsvOf(tree, With({.folders = false, .files = true}));
    EXPECT_EQ(OnlyCell(csv, 11), "12");
    EXPECT_EQ(OnlyCell(csv, 1), "d\\d\\d\\d\\d\\d\\d\\d\\d\\d\\d\\d\\leaf");
}

TEST(RowWriter, PathsMayBeLongerThanTheBuffer) {
    ScanTree tree;
    Scanner::Node* node = &tree.root;
    std::string path;
    for (int depth = 0; depth < 400; ++depth) {
        node = &tree.AddFolder(*node, std::wstring(250, L'\x20AC'));
        for (int i = 0; i < 250; ++i)
            path += "\xE2\x82\xAC";
        path += "\\";
    }
    tree.AddFile(*node, L"leaf");
    EXPECT_EQ(OnlyCell(CsvOf(tree, With({.folders = false, .files = true})), 1), path + "leaf");
}

}  // namespace
