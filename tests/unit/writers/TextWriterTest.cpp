#include "writers/TextWriter.h"

#include <gtest/gtest.h>

#include <string>

#include "support/lists/ListSupport.h"

namespace {

const std::string Title = Lines({"Tamblewick 4.0.1", "", "Summary of path: C:\\Data", "Created: *", ""});

ListPreset NamesAndSizes() {
    ListPreset preset;
    preset.Folders({FolderColumn::Name, FolderColumn::Size}).Files({FileColumn::Filename, FileColumn::Size});
    return preset;
}

// C:\Data\Sub\a.txt of 1536 bytes.
ScanTree OneFile() {
    ScanTree tree;
    tree.AddFile(tree.AddFolder(tree.root, L"Sub"), L"a.txt", 1536);
    return tree;
}

ScanTree OneFileFlat() {
    ScanTree tree = OneFile();
    tree.Flatten();
    return tree;
}

TEST(TextWriter, WritesAFlatListWithHeadings) {
    ListPreset preset;
    preset.Folders({FolderColumn::Number, FolderColumn::Name, FolderColumn::Size})
        .Files({FileColumn::Filename, FileColumn::Size})
        .Flat();
    const std::string rows = Lines({
        "| #\t| Name\t| Size\t|",
        "",
        "1.\tSub\t1.5 KiB",
        "",
        "",
        "",
        "| Filename\t| Size\t|",
        "",
        "a.txt\t1.5 KiB",
    });
    EXPECT_EQ(ListOf(preset, OneFileFlat()), Title + rows);
}

// Byte for byte, the mark and the ends of line included.
TEST(TextWriter, WritesAGroupedListWithStatistics) {
    const ListPreset preset = NamesAndSizes().Utf8().Statistics();
    EXPECT_EQ(ListOf(preset, OneFile()),
              "\xEF\xBB\xBF"
              "Tamblewick 4.0.1\r\n\r\n"
              "Summary of path: C:\\Data\r\n"
              "Created: *\r\n\r\n"
              "Total size: 1.5 KiB\r\n"
              "Total number of folders: 1\r\n"
              "Total number of files: 1\r\n\r\n\r\n"
              "Sub\t1.5 KiB\r\n"
              "\ta.txt\t1.5 KiB\r\n");
}

TEST(TextWriter, StatisticsAreTheTotalsOfTheRoot) {
    ScanTree tree = OneFile();
    tree.root.folder->size = 5000000000;
    tree.root.folder->totalFolders = 1234567;
    tree.root.folder->totalFiles = 98765432109;
    const ListPreset preset = ListPreset().Statistics().Sizes(SizeStyle::Bytes);
    const std::string rows = Lines({
        "Total size: 5000000000 Bytes",
        "Total number of folders: 1234567",
        "Total number of files: 98765432109",
        "",
        "",
    });
    EXPECT_EQ(ListOf(preset, tree), Title + rows);
}

ScanTree ThreeLevels() {
    ScanTree tree;
    Scanner::Node& a = tree.AddFolder(tree.root, L"A");
    Scanner::Node& b = tree.AddFolder(a, L"B");
    tree.AddFile(tree.AddFolder(b, L"C"), L"c.txt", 1);
    tree.AddFile(b, L"b.txt", 2);
    tree.AddFile(a, L"a.txt", 3);
    tree.AddFolder(tree.root, L"Z");
    tree.AddFile(tree.root, L"top.txt", 4);
    return tree;
}

TEST(TextWriter, GroupedRowsAreIndentedByTheirDepth) {
    const std::string rows = Lines({
        "A\t6 Bytes",
        "\tB\t3 Bytes",
        "\t\tC\t1 Bytes",
        "\t\t\tc.txt\t1 Bytes",
        "\t\tb.txt\t2 Bytes",
        "\ta.txt\t3 Bytes",
        "Z\t0 Bytes",
        "top.txt\t4 Bytes",
    });
    EXPECT_EQ(ListOf(NamesAndSizes().Indent(1), ThreeLevels()), Title + rows);
}

TEST(TextWriter, IndentSizeCountsTabs) {
    ListPreset preset;
    preset.Folders({FolderColumn::Name}).Indent(3);
    EXPECT_EQ(ListOf(preset, ThreeLevels()), Title + Lines({"A", "\t\t\tB", "\t\t\t\t\t\tC", "Z"}));
}

TEST(TextWriter, IndentSizeZeroShowsNoDepth) {
    ListPreset preset;
    preset.Folders({FolderColumn::Name}).Files({FileColumn::Filename}).Indent(0);
    EXPECT_EQ(ListOf(preset, ThreeLevels()),
              Title + Lines({"A", "B", "C", "c.txt", "b.txt", "a.txt", "Z", "top.txt"}));
}

TEST(TextWriter, FlatRowsAreNotIndented) {
    ScanTree tree = ThreeLevels();
    tree.Flatten();
    ListPreset preset;
    preset.Folders({FolderColumn::PathAndName}).Files({FileColumn::Path}).Flat().Indent(3).Headers(false);
    const std::string rows = Lines({
        "C:\\Data\\A",
        "C:\\Data\\A\\B",
        "C:\\Data\\A\\B\\C",
        "C:\\Data\\Z",
        "",
        "",
        "",
        "C:\\Data\\A\\B\\C",
        "C:\\Data\\A\\B",
        "C:\\Data\\A",
        "C:\\Data",
    });
    EXPECT_EQ(ListOf(preset, tree), Title + rows);
}

TEST(TextWriter, FlatListWithoutHeadingsKeepsTheEmptyLinesBetweenTheLists) {
    const std::string rows = Lines({
        "Sub\t1.5 KiB",
        "",
        "",
        "",
        "a.txt\t1.5 KiB",
    });
    EXPECT_EQ(ListOf(NamesAndSizes().Flat().Headers(false), OneFileFlat()), Title + rows);
}

TEST(TextWriter, GroupedListHasNoHeadingsInAnyCase) {
    const std::string expected = Title + Lines({"Sub\t1.5 KiB", "\ta.txt\t1.5 KiB"});
    EXPECT_EQ(ListOf(NamesAndSizes().Headers(true), OneFile()), expected);
    EXPECT_EQ(ListOf(NamesAndSizes().Headers(false), OneFile()), expected);
}

TEST(TextWriter, FlatListWithoutFoldersBeginsWithTwoEmptyLines) {
    ScanTree tree;
    tree.AddFile(tree.root, L"a.txt", 1536);
    const std::string rows = Lines({
        "",
        "",
        "| Filename\t| Size\t|",
        "",
        "a.txt\t1.5 KiB",
    });
    EXPECT_EQ(ListOf(NamesAndSizes().Flat(), tree), Title + rows);
}

TEST(TextWriter, FlatListWithoutFilesEndsWithOneEmptyLine) {
    ScanTree tree;
    tree.AddFolder(tree.root, L"Sub");
    const std::string rows = Lines({
        "| Name\t| Size\t|",
        "",
        "Sub\t0 Bytes",
        "",
    });
    EXPECT_EQ(ListOf(NamesAndSizes().Flat(), tree), Title + rows);
}

TEST(TextWriter, EmptyFolderGivesTheTitleAlone) {
    EXPECT_EQ(ListOf(NamesAndSizes(), ScanTree()), Title);
    EXPECT_EQ(ListOf(NamesAndSizes().Flat(), ScanTree()), Title);
}

TEST(TextWriter, OneColumnNeedsNoTabButInTheHeading) {
    ListPreset preset;
    preset.Folders({FolderColumn::Name}).Files({FileColumn::Filename}).Flat();
    const std::string rows = Lines({
        "| Name\t|",
        "",
        "Sub",
        "",
        "",
        "",
        "| Filename\t|",
        "",
        "a.txt",
    });
    EXPECT_EQ(ListOf(preset, OneFileFlat()), Title + rows);
}

TEST(TextWriter, WithoutFolderColumnsFilesAreIndentedAllTheSame) {
    const std::string rows = Lines({
        "\t\t\tc.txt\t1 Bytes",
        "\t\tb.txt\t2 Bytes",
        "\ta.txt\t3 Bytes",
        "top.txt\t4 Bytes",
    });
    EXPECT_EQ(ListOf(NamesAndSizes().Folders({}), ThreeLevels()), Title + rows);
}

// The heading of no column is its two ends of line.
TEST(TextWriter, FlatListWithoutAnyColumnsHasEmptyLinesOnly) {
    EXPECT_EQ(ListOf(ListPreset().Flat(), OneFileFlat()), Title + Lines({"", "", "", "", "", "", ""}));
}

TEST(TextWriter, EscapesNothing) {
    ScanTree tree;
    tree.AddFile(tree.root, L"a|b & <c>.txt");
    EXPECT_EQ(ListOf(ListPreset().Files({FileColumn::Filename}), tree), Title + Lines({"a|b & <c>.txt"}));
}

}  // namespace
