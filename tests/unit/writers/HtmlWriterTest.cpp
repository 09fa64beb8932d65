#include "writers/HtmlWriter.h"

#include <gtest/gtest.h>

#include <string>

#include "support/TempFolder.h"
#include "support/lists/ListSupport.h"

namespace {

const std::string Separator = Lines({"<br />", "<hr />", "<br />"});
const std::string Title = Lines({
    "<table>",
    "\t<tr><td><span class=\"header\">Tamblewick 4.0.1</span></td></tr>",
    "\t<tr><td><span class=\"summary\">Summary of path: C:\\Data</span></td></tr>",
    "\t<tr><td><span class=\"summary\">Created: *</span></td></tr>",
    "</table>",
});
const std::string Footer = Separator + Lines({"</body>", "</html>"});

std::string Row(const std::string& cells) {
    return Lines({"\t<tr>", "\t\t" + cells, "\t</tr>"});
}

std::string Table(const std::string& kind, const std::string& margin, const std::string& rows) {
    return Lines({"<table class=\"" + kind + "\" style=\"margin-left:" + margin + "\">"}) + rows +
           Lines({"</table>"});
}

ListPreset Names() {
    ListPreset preset;
    preset.Style(ListStyle::Html).Folders({FolderColumn::Name}).Files({FileColumn::Filename});
    return preset;
}

// The text after the line with the opening tag of the body.
std::string BodyOf(const Preset& preset, const ScanTree& tree) {
    const std::string list = ListOf(preset, tree);
    const std::string opening = "</head>\r\n<body>\r\n";
    const size_t place = list.find(opening);
    return place == std::string::npos ? "no body in: " + list : list.substr(place + opening.size());
}

ScanTree OneFile() {
    ScanTree tree;
    tree.AddFile(tree.AddFolder(tree.root, L"Sub"), L"a.txt", 1536);
    return tree;
}

TEST(HtmlWriter, WritesAGroupedBody) {
    const std::string body = Lines({
        "<table>",
        "\t<tr><td><span class=\"header\">Tamblewick 4.0.1</span></td></tr>",
        "\t<tr><td><span class=\"summary\">Summary of path: C:\\Data</span></td></tr>",
        "\t<tr><td><span class=\"summary\">Created: *</span></td></tr>",
        "</table>",
        "<br />",
        "<hr />",
        "<br />",
        "<table class=\"folders\" style=\"margin-left:0px\">",
        "\t<tr>",
        "\t\t<th>Name</th>",
        "\t</tr>",
        "\t<tr>",
        "\t\t<td>Sub</td>",
        "\t</tr>",
        "</table>",
        "<table class=\"files\" style=\"margin-left:16px\">",
        "\t<tr>",
        "\t\t<th>Filename</th>",
        "\t</tr>",
        "\t<tr>",
        "\t\t<td>a.txt</td>",
        "\t</tr>",
        "</table>",
        "<br />",
        "<hr />",
        "<br />",
        "</body>",
        "</html>",
    });
    EXPECT_EQ(BodyOf(Names().Indent(1), OneFile()), body);
}

TEST(HtmlWriter, StatisticsFollowInATableOfTheirOwn) {
    const std::string statistics = Lines({
        "<table>",
        "\t<tr><td>Total size:</td><td>1.5 KiB</td></tr>",
        "\t<tr><td>Total number of folders:</td><td>1</td></tr>",
        "\t<tr><td>Total number of files:</td><td>1</td></tr>",
        "</table>",
    });
    ListPreset preset = Names().Statistics().Headers(false);
    const std::string folders = Table("folders", "0px", Row("<td>Sub</td>"));
    EXPECT_EQ(BodyOf(preset, OneFile()), Title + statistics + Separator + folders +
                                             Table("files", "16px", Row("<td>a.txt</td>")) + Footer);
    ScanTree flat = OneFile();
    flat.Flatten();
    EXPECT_EQ(BodyOf(preset.Flat(), flat), Title + statistics + Separator + folders + Separator +
                                               Table("files", "0px", Row("<td>a.txt</td>")) + Footer);
}

TEST(HtmlWriter, CellsOfARowShareALine) {
    ScanTree tree = OneFile();
    ListPreset preset;
    preset.Style(ListStyle::Html)
        .Folders({FolderColumn::Number, FolderColumn::Name, FolderColumn::Size})
        .Files({FileColumn::Filename, FileColumn::Extension, FileColumn::Number});
    EXPECT_EQ(BodyOf(preset, tree), Title + Separator +
                                        Table("folders", "0px",
                                              Row("<th>#</th><th>Name</th><th>Size</th>") +
                                                  Row("<td>1.</td><td>Sub</td><td>1.5 KiB</td>")) +
                                        Table("files", "16px",
                                              Row("<th>Filename</th><th>Extension</th><th>#</th>") +
                                                  Row("<td>a.txt</td><td>txt</td><td>1.</td>")) +
                                        Footer);
}

ScanTree ThreeLevels() {
    ScanTree tree;
    Scanner::Node& a = tree.AddFolder(tree.root, L"A");
    Scanner::Node& b = tree.AddFolder(a, L"B");
    tree.AddFile(tree.AddFolder(b, L"C"), L"c.txt");
    tree.AddFile(a, L"a1.txt");
    tree.AddFile(a, L"a2.txt");
    tree.AddFile(tree.root, L"top.txt");
    return tree;
}

std::string GroupedLevels(const std::string& step1, const std::string& step2, const std::string& step3) {
    return Title + Separator + Table("folders", "0px", Row("<td>A</td>")) +
           Table("folders", step1, Row("<td>B</td>")) + Table("folders", step2, Row("<td>C</td>")) +
           Table("files", step3, Row("<td>c.txt</td>")) +
           Table("files", step1, Row("<td>a1.txt</td>") + Row("<td>a2.txt</td>")) +
           Table("files", "0px", Row("<td>top.txt</td>")) + Footer;
}

TEST(HtmlWriter, MarginGrowsBySixteenPixelsForEachUnitOfIndentSize) {
    EXPECT_EQ(BodyOf(Names().Headers(false).Indent(2), ThreeLevels()), GroupedLevels("32px", "64px", "96px"));
}

TEST(HtmlWriter, IndentSizeZeroLeavesEveryMarginZero) {
    EXPECT_EQ(BodyOf(Names().Headers(false).Indent(0), ThreeLevels()), GroupedLevels("0px", "0px", "0px"));
}

TEST(HtmlWriter, MarginStepIsShiftedIn32Bits) {
    EXPECT_EQ(BodyOf(Names().Headers(false).Indent(0x10000001), ThreeLevels()),
              GroupedLevels("16px", "32px", "48px"));
    EXPECT_EQ(BodyOf(Names().Headers(false).Indent(0x0FFFFFFF), ThreeLevels()),
              GroupedLevels("4294967280px", "8589934560px", "12884901840px"));
}

TEST(HtmlWriter, FlatListHasTwoTables) {
    ScanTree tree = ThreeLevels();
    tree.Flatten();
    EXPECT_EQ(BodyOf(Names().Flat().Indent(2), tree),
              Title + Separator +
                  Table("folders", "0px",
                        Row("<th>Name</th>") + Row("<td>A</td>") + Row("<td>B</td>") + Row("<td>C</td>")) +
                  Separator +
                  Table("files", "0px",
                        Row("<th>Filename</th>") + Row("<td>c.txt</td>") + Row("<td>a1.txt</td>") +
                            Row("<td>a2.txt</td>") + Row("<td>top.txt</td>")) +
                  Footer);
}

TEST(HtmlWriter, FlatListWithoutFoldersOpensWithTheFiles) {
    ScanTree tree;
    tree.AddFile(tree.root, L"a.txt");
    EXPECT_EQ(BodyOf(Names().Flat().Headers(false), tree),
              Title + Separator + Table("files", "0px", Row("<td>a.txt</td>")) + Footer);
}

TEST(HtmlWriter, FlatListWithoutFilesEndsWithTheFolders) {
    ScanTree tree;
    tree.AddFolder(tree.root, L"Sub");
    EXPECT_EQ(BodyOf(Names().Flat().Headers(false), tree),
              Title + Separator + Table("folders", "0px", Row("<td>Sub</td>")) + Footer);
}

TEST(HtmlWriter, EmptyFolderHasARowAndNoFileTable) {
    ScanTree tree;
    tree.AddFolder(tree.root, L"Empty");
    EXPECT_EQ(BodyOf(Names().Headers(false), tree),
              Title + Separator + Table("folders", "0px", Row("<td>Empty</td>")) + Footer);
}

TEST(HtmlWriter, EmptyScannedFolderHasNoRow) {
    EXPECT_EQ(BodyOf(Names(), ScanTree()), Title + Separator + Footer);
    EXPECT_EQ(BodyOf(Names().Flat(), ScanTree()), Title + Footer);
}

TEST(HtmlWriter, WithoutFileColumnsFilesLeaveNoTrace) {
    EXPECT_EQ(
        BodyOf(Names().Files({}), OneFile()),
        Title + Separator + Table("folders", "0px", Row("<th>Name</th>") + Row("<td>Sub</td>")) + Footer);
    ScanTree flat = OneFile();
    flat.Flatten();
    EXPECT_EQ(
        BodyOf(Names().Files({}).Flat(), flat),
        Title + Separator + Table("folders", "0px", Row("<th>Name</th>") + Row("<td>Sub</td>")) + Footer);
}

TEST(HtmlWriter, WithoutFolderColumnsFilesKeepTheirMargin) {
    EXPECT_EQ(BodyOf(Names().Folders({}).Headers(false), OneFile()),
              Title + Separator + Table("files", "16px", Row("<td>a.txt</td>")) + Footer);
}

// Such a tree does not come from a scan, which leaves out folders that no column shows.
TEST(HtmlWriter, EndOfFlatFoldersDoesNotAskForColumns) {
    ScanTree tree;
    tree.AddFolder(tree.root, L"Sub");
    EXPECT_EQ(BodyOf(Names().Folders({}).Flat(), tree), Title + Lines({"</table>"}) + Footer);
}

TEST(HtmlWriter, UnindentAtDepthZeroDoesNothing) {
    const TestSupport::TempFolder folder;
    {
        const ListPreset preset = Names().Indent(1);
        HtmlWriter writer(preset, folder.Path(L"list").c_str());
        writer.Unindent();
        writer.Indent();
        writer.BeginFiles();
    }
    const std::string list = folder.Read(L"list").value_or("no file");
    EXPECT_NE(list.find("margin-left:16px"), std::string::npos) << list;
}

TEST(HtmlWriter, EscapesNothing) {
    ScanTree tree(L"C:\\R&D <x>");
    tree.AddFile(tree.root, L"a & \"b\" <c>.txt");
    const std::string body = BodyOf(Names().Headers(false), tree);
    EXPECT_NE(body.find("Summary of path: C:\\R&D <x></span>"), std::string::npos) << body;
    EXPECT_NE(body.find("<td>a & \"b\" <c>.txt</td>"), std::string::npos) << body;
}

}  // namespace
