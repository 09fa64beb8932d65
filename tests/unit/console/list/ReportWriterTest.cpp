#include "console/list/ReportWriter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "RowSupport.h"
#include "report/Page.h"
#include "support/Random.h"

namespace {

using Console::ReportWriter;
using RowSupport::ReportOf;
using RowSupport::Ticks;
using RowSupport::Units;

constexpr uint64_t TicksOfASecond = 10'000'000;
constexpr uint64_t From1601To1970 = 11'644'473'600;

FILETIME SecondsSince1970(int64_t seconds) {
    return Ticks((From1601To1970 + static_cast<uint64_t>(seconds)) * TicksOfASecond);
}

// What is between the two parts of the page.
std::string DataOf(const std::string& report) {
    EXPECT_TRUE(report.starts_with(Report::PageStart));
    EXPECT_TRUE(report.ends_with(Report::PageEnd));
    const size_t fixed = Report::PageStart.size() + Report::PageEnd.size();
    return report.size() < fixed ? "" : report.substr(Report::PageStart.size(), report.size() - fixed);
}

// The contents of the data elements. Checks that there is nothing else between the parts of the page.
std::vector<std::string> ElementsOf(const std::string& report) {
    const std::string end = "</script>\n";
    std::vector<std::string> elements;
    std::string data = DataOf(report);
    while (!data.empty()) {
        const std::string name = elements.empty() ? "list" : "block";
        const std::string start = "<script type=\"application/json\" class=\"" + name + "\">";
        const size_t length = data.find(end);
        if (!data.starts_with(start) || length == std::string::npos) {
            ADD_FAILURE() << data;
            return {};
        }
        elements.push_back(data.substr(start.size(), length - start.size()));
        data = data.substr(length + end.size());
    }
    return elements;
}

std::string OnlyBlockOf(const ScanTree& tree) {
    const std::vector<std::string> elements = ElementsOf(ReportOf(tree));
    EXPECT_EQ(elements.size(), 2u);
    return elements.back();
}

// A member of a block as it is written, which has no quotation marks inside.
std::string Member(const std::string& block, const std::string& name) {
    const std::string start = "\"" + name + "\":\"";
    const size_t place = block.find(start);
    if (place == std::string::npos)
        return "no member " + name;
    const std::string value = block.substr(place + start.size());
    return value.substr(0, value.find('"'));
}

std::string NameInReport(const std::wstring& name) {
    ScanTree tree;
    tree.AddFile(tree.root, name);
    return Member(OnlyBlockOf(tree), "names");
}

TEST(ReportWriter, TheFirstElementDescribesTheList) {
    ScanTree tree;
    tree.AddFile(tree.AddFolder(tree.root, L"Sub"), L"a", 300);
    tree.AddFile(tree.root, L"b", 12);
    const std::string report =
        ReportOf(tree, {.preset = L"My \"list\"", .created = Ticks(134397435200213522)});
    EXPECT_EQ(ElementsOf(report).front(),
              "{\"format\":1,\"program\":\"Tamblewick 4.0.1\",\"root\":\"C:\\u005cData\",\"preset\":\"My "
              "\\u0022list"
              "\\u0022\",\"created\":\"2026-11-21T14:05:20.0213522Z\",\"size\":312,\"folders\":1,\"files\":2,"
              "\"blockRows\":4096}");
}

TEST(ReportWriter, ABlockHasAColumnInEachMember) {
    ScanTree tree;
    tree.AddFile(tree.AddFolder(tree.root, L"Sub"), L"a.txt", 35);
    tree.AddFile(tree.root, L"b", 36);
    EXPECT_EQ(OnlyBlockOf(tree),
              "{\"rows\":3,\"names\":\"Sub\\ba.txt\\bb\",\"tree\":\"(1)1\",\"sizes\":\"z,10,\",\"modified\":"
              "\",,,\","
              "\"created\":\",,,\"}");
}

TEST(ReportWriter, AnEmptyFolderHasAnEmptyBlock) {
    EXPECT_EQ(OnlyBlockOf(ScanTree()),
              "{\"rows\":0,\"names\":\"\",\"tree\":\"\",\"sizes\":\"\",\"modified\":\"\",\"created\":\"\"}");
}

TEST(ReportWriter, TheTreeNestsFoldersAndCountsFiles) {
    ScanTree tree;
    Scanner::Node& first = tree.AddFolder(tree.root, L"first");
    Scanner::Node& inner = tree.AddFolder(first, L"inner");
    tree.AddFile(inner, L"a");
    tree.AddFile(inner, L"b");
    tree.AddFile(first, L"c");
    tree.AddFolder(tree.root, L"second").folder->flags = Scanner::Record::AccessDenied;
    tree.AddFolder(tree.root, L"third");
    for (int i = 0; i < 12; ++i)
        tree.AddFile(tree.root, L"d");
    const std::string block = OnlyBlockOf(tree);
    EXPECT_EQ(Member(block, "tree"), "((2)1)[)()12");
    EXPECT_EQ(Member(block, "names"),
              R"(first\binner\ba\bb\bc\bsecond\bthird\bd\bd\bd\bd\bd\bd\bd\bd\bd\bd\bd\bd)");
}

TEST(ReportWriter, SizesOfAllMagnitudesAreInBase36) {
    ScanTree tree;
    for (const uint64_t size :
         {uint64_t{0}, uint64_t{35}, uint64_t{36}, uint64_t{1'679'616}, std::numeric_limits<uint64_t>::max()})
        tree.AddFile(tree.root, L"a", size);
    EXPECT_EQ(Member(OnlyBlockOf(tree), "sizes"), "0,z,10,10000,3w5e11264sgsf,");
}

TEST(ReportWriter, TimesAreDifferencesInSeconds) {
    ScanTree tree;
    const auto add = [&tree](FILETIME modified, FILETIME created) {
        Scanner::File& file = tree.AddFile(tree.root, L"a");
        file.lastTimeWritten = modified;
        file.timeCreated = created;
    };
    add(SecondsSince1970(1'000'000), SecondsSince1970(1'000'000));
    add(SecondsSince1970(1'000'036), SecondsSince1970(1'000'000));
    add({}, SecondsSince1970(36));
    add(SecondsSince1970(1'000'000), {});
    add(SecondsSince1970(-1), SecondsSince1970(0));
    const std::string block = OnlyBlockOf(tree);
    EXPECT_EQ(Member(block, "modified"), "lfls,10,,-10,-lflt,");
    EXPECT_EQ(Member(block, "created"), "0,-10,10,,1,");
}

TEST(ReportWriter, FractionsOfASecondAreCutOff) {
    ScanTree tree;
    Scanner::File& file = tree.AddFile(tree.root, L"a");
    file.lastTimeWritten = Ticks((From1601To1970 + 7) * TicksOfASecond + TicksOfASecond - 1);
    EXPECT_EQ(Member(OnlyBlockOf(tree), "modified"), "7,");
}

TEST(ReportWriter, NothingInANameCanEndItsElement) {
    EXPECT_EQ(NameInReport(L"<img src=x onerror=alert(1)>"), "\\u003cimg src=x onerror=alert(1)\\u003e");
    EXPECT_EQ(NameInReport(L"<!--&lt;\"\\"), "\\u003c!--\\u0026lt;\\u0022\\u005c");
    EXPECT_EQ(NameInReport(L"<script"), "\\u003cscript");
    EXPECT_EQ(NameInReport(Units({'a', '/', 1, 0x0A, 0x0D, 0x1F, 0x7F})),
              "a/\\u0001\\u000a\\u000d\\u001f\x7F");
    EXPECT_EQ(NameInReport(Units({0xE4, 0x202E, 0xD83D, 0xDE00})), "\xC3\xA4\xE2\x80\xAE\xF0\x9F\x98\x80");
}

// Half of what a name may consist of is what the page, JSON or the columns are made of.
TEST(ReportWriter, NamesOfAnyCharactersStayApartAndPlainText) {
    ForRandomInputs(
        200,
        [](Random& random) {
            constexpr std::wstring_view Special = L"<>&\"\\/\b\n-!script";
            const int count = random.Between(1, 40);
            ScanTree tree;
            for (int i = 0; i < count; ++i) {
                std::wstring name = L"n" + random.Text(10);
                for (wchar_t& unit : name)
                    unit = random.Bool() ? random.Choose(Special) : unit;
                tree.AddFile(tree.root, name);
            }
            const std::string names = Member(OnlyBlockOf(tree), "names");
            EXPECT_EQ(
                std::ranges::count_if(
                    names, [](char c) { return c == '<' || c == '>' || c == '&' || (c >= 0 && c < 0x20); }),
                0);
            int separators = 0;
            for (size_t place = names.find('\\'); place != std::string::npos;
                 place = names.find('\\', place + 1)) {
                const char escape = names.at(place + 1);
                EXPECT_TRUE(escape == 'b' || escape == 'u') << escape;
                separators += escape == 'b';
            }
            EXPECT_EQ(separators, count - 1);
        });
}

TEST(ReportWriter, NothingInTheRootOrThePresetCanEndItsElement) {
    const ScanTree tree(L"C:\\</script>/");
    const std::string report = ReportOf(tree, {.preset = L"<!--", .created = {}});
    const std::string list = ElementsOf(report).front();
    EXPECT_NE(
        list.find("\"root\":\"C:\\u005c\\u003c/script\\u003e/\",\"preset\":\"\\u003c!--\",\"created\":\"\""),
        std::string::npos)
        << list;
}

TEST(ReportWriter, HalfASurrogatePairIsTheReplacementCharacter) {
    EXPECT_EQ(NameInReport(Units({'a', 0xD83D})), "a\xEF\xBF\xBD");
    EXPECT_EQ(NameInReport(Units({0xDE00, 'b'})),
              "\xEF\xBF\xBD"
              "b");
}

TEST(ReportWriter, TheSeparatorInANameMovesNoOtherName) {
    EXPECT_EQ(NameInReport(L"a\bb"),
              "a\xEF\xBF\xBD"
              "b");
}

TEST(ReportWriter, ALargeListHasSeveralBlocks) {
    ScanTree tree;
    Scanner::Node& folder = tree.AddFolder(tree.root, L"Sub");
    for (size_t i = 0; i < ReportWriter::BlockRows; ++i)
        tree.AddFile(folder, L"a", 1).lastTimeWritten = SecondsSince1970(5);
    tree.AddFile(tree.root, L"last", 2).lastTimeWritten = SecondsSince1970(6);
    const std::vector<std::string> elements = ElementsOf(ReportOf(tree));
    ASSERT_EQ(elements.size(), 3u);
    EXPECT_TRUE(elements[1].starts_with("{\"rows\":4096,\"names\":\"Sub\\ba\\ba\\b"));
    EXPECT_EQ(Member(elements[1], "tree"), "(4095");
    EXPECT_EQ(elements[2],
              "{\"rows\":2,\"names\":\"a\\blast\",\"tree\":\"1)1\",\"sizes\":\"1,2,\",\"modified\":\"5,1,\","
              "\"created\":\",,\"}");
}

TEST(ReportWriter, AFullBlockIsNotFollowedByAnEmptyOne) {
    ScanTree tree;
    for (size_t i = 0; i < ReportWriter::BlockRows; ++i)
        tree.AddFile(tree.root, L"a");
    EXPECT_EQ(ElementsOf(ReportOf(tree)).size(), 2u);
}

// The worst sizes and times, and as many folders as files.
TEST(ReportWriter, AnEntryTakesAtMost40BytesAndItsName) {
    constexpr size_t Folders = 5000;
    std::mt19937_64 random(1);
    const auto anyTime = [&random] {
        return Ticks(random() % 2 == 0 ? 1 : std::numeric_limits<uint64_t>::max());
    };
    ScanTree tree;
    tree.root.folders.reserve(Folders);
    for (size_t i = 0; i < Folders; ++i) {
        Scanner::Node& folder = tree.AddFolder(tree.root, L"f");
        Scanner::File& file = tree.AddFile(folder, L"f", std::numeric_limits<uint64_t>::max());
        for (Scanner::Record* record : {folder.folder, &file}) {
            record->lastTimeWritten = anyTime();
            record->timeCreated = anyTime();
        }
    }
    const size_t names = 2 * Folders;
    EXPECT_LE(DataOf(ReportOf(tree)).size(), 2 * Folders * 40 + names);
}

TEST(ReportWriter, ThePageHasTheNoticeOfItsLibrary) {
    for (const char* text :
         {"Redistributions in binary form must reproduce the above copyright", "d3-hierarchy"})
        EXPECT_NE(Report::PageEnd.find(text), std::string_view::npos) << text;
}

// A page that is cut off anywhere has no whole script.
TEST(ReportWriter, TheScriptsFollowTheData) {
    EXPECT_EQ(Report::PageStart.find("<script"), std::string_view::npos);
    EXPECT_NE(Report::PageEnd.find("<script>"), std::string_view::npos);
    EXPECT_LT(Report::PageStart.find("Content-Security-Policy"), Report::PageStart.find("<style"));
}

}  // namespace
