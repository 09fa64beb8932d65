#include "console/list/JsonLinesWriter.h"

#include <gtest/gtest.h>

#include <string>

#include "RowSupport.h"

namespace {

using Console::JsonLinesOptions;
using RowSupport::JsonOf;
using RowSupport::ObjectsOf;
using RowSupport::PlainJson;

TEST(JsonLinesWriter, BeginsWithTheListAndEndsWithTheSummary) {
    ScanTree tree;
    tree.AddFile(tree.AddFolder(tree.AddFolder(tree.root, L"Sub"), L"Inner"), L"a", 300);
    tree.AddFile(tree.root, L"b", 12);
    JsonLinesOptions options = PlainJson();
    options.rows = {.folders = false, .files = false};
    options.preset = L"My \"list\"";
    options.created = RowSupport::Ticks(134397435200213522);
    options.unreadable = 3;
    EXPECT_EQ(JsonOf(tree, options),
              "{\"type\":\"list\",\"format\":1,\"program\":\"Tamblewick 4.0.1\",\"root\":\"C:\\\\Data\","
              "\"preset\":\"My \\\"list\\\"\",\"created\":\"2026-11-21T14:05:20.0213522Z\"}\n"
              "{\"type\":\"summary\",\"size\":312,\"folders\":2,\"files\":2,\"unreadable\":3}\n");
}

TEST(JsonLinesWriter, WritesEachFieldOfAFile) {
    ScanTree tree;
    Scanner::File& file = tree.AddFile(tree.AddFolder(tree.root, L"Sub"), L"a.b.txt", 18446744073709551615u);
    file.attributes = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_ARCHIVE;
    file.timeCreated = RowSupport::Ticks(132224078450000000);
    file.lastTimeWritten = RowSupport::Ticks(132675269500000000);
    file.lastTimeAccessed = RowSupport::Ticks(133099639941234567);
    JsonLinesOptions options = PlainJson();
    options.rows.folders = false;
    EXPECT_EQ(ObjectsOf(JsonOf(tree, options)),
              "{\"type\":\"file\",\"path\":\"Sub\\\\a.b.txt\",\"name\":\"a.b.txt\",\"extension\":\"txt\","
              "\"size\":18446744073709551615,\"attributes\":\"RA\","
              "\"created\":\"2020-01-02T03:04:05.0000000Z\",\"modified\":\"2021-06-07T08:09:10.0000000Z\","
              "\"accessed\":\"2022-10-11T12:13:14.1234567Z\",\"depth\":1,\"error\":\"\"}\n");
}

TEST(JsonLinesWriter, WritesEachFieldOfAFolder) {
    ScanTree tree;
    Scanner::Node& folder = tree.AddFolder(tree.root, L"Sub.x");
    folder.folder->attributes = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_HIDDEN;
    folder.folder->lastTimeWritten = RowSupport::Ticks(132675269500000000);
    folder.folder->flags = Scanner::Record::AccessDenied;
    tree.AddFile(tree.AddFolder(folder, L"Inner"), L"b", 500);
    tree.AddFile(folder, L"a", 7);
    JsonLinesOptions options = PlainJson();
    options.rows.files = false;
    EXPECT_EQ(
        ObjectsOf(JsonOf(tree, options)),
        "{\"type\":\"directory\",\"path\":\"Sub.x\",\"name\":\"Sub.x\",\"extension\":\"\",\"size\":507,"
        "\"attributes\":\"H\",\"created\":\"\",\"modified\":\"2021-06-07T08:09:10.0000000Z\",\"accessed\":"
        "\"\","
        "\"files\":2,\"folders\":1,\"depth\":0,\"error\":\"access-denied\"}\n"
        "{\"type\":\"directory\",\"path\":\"Sub.x\\\\Inner\",\"name\":\"Inner\",\"extension\":\"\",\"size\":"
        "500,"
        "\"attributes\":\"\",\"created\":\"\",\"modified\":\"\",\"accessed\":\"\",\"files\":1,\"folders\":0,"
        "\"depth\":1,\"error\":\"\"}\n");
}

TEST(JsonLinesWriter, EscapesQuotesBackslashesAndControlCharacters) {
    struct Case {
        std::wstring name;
        const char* text;
    };
    const Case cases[] = {
        {L"plain", "plain"},
        {L"say \"hi\"", "say \\\"hi\\\""},
        {L"back\\slash", "back\\\\slash"},
        {L"/it's <&>", "/it's <&>"},
        {RowSupport::Units({0x01, 0x08, 0x09, 0x0A, 0x0D, 0x1F, 0x20, 0x7F}),
         "\\u0001\\u0008\\u0009\\u000a\\u000d\\u001f \x7F"},
        {RowSupport::Units({0x202E, 0xE4, 0x20AC, 0x2028}), "\xE2\x80\xAE\xC3\xA4\xE2\x82\xAC\xE2\x80\xA8"},
        {RowSupport::Units({0xD83D, 0xDE00}), "\xF0\x9F\x98\x80"},
    };
    for (const Case& test : cases) {
        ScanTree tree;
        tree.AddFolder(tree.root, test.name);
        const std::string json = JsonOf(tree, PlainJson());
        EXPECT_EQ(RowSupport::OnlyMember(json, "name"), "\"" + std::string(test.text) + "\"");
        EXPECT_EQ(RowSupport::OnlyMember(json, "path"), "\"" + std::string(test.text) + "\"");
        EXPECT_EQ(json.find("lossy"), std::string::npos);
    }
}

TEST(JsonLinesWriter, OnlyTheRowsWithHalfASurrogatePairAreLossy) {
    ScanTree tree;
    tree.AddFolder(tree.root, L"before");
    tree.AddFolder(tree.root, RowSupport::Units({'a', 0xD83D}));
    tree.AddFolder(tree.root, RowSupport::Units({0xFFFD}));
    const std::string expected =
        "{\"type\":\"directory\",\"path\":\"before\",\"name\":\"before\",\"extension\":\"\",\"size\":0,"
        "\"attributes\":\"\",\"created\":\"\",\"modified\":\"\",\"accessed\":\"\",\"files\":0,\"folders\":0,"
        "\"depth\":0,\"error\":\"\"}\n"
        "{\"type\":\"directory\",\"path\":\"a\xEF\xBF\xBD\",\"name\":\"a\xEF\xBF\xBD\",\"extension\":\"\","
        "\"size\":0,\"attributes\":\"\",\"created\":\"\",\"modified\":\"\",\"accessed\":\"\",\"files\":0,"
        "\"folders\":0,\"depth\":0,\"error\":\"\",\"lossy\":true}\n"
        "{\"type\":\"directory\",\"path\":\"\xEF\xBF\xBD\",\"name\":\"\xEF\xBF\xBD\",\"extension\":\"\","
        "\"size\":0,\"attributes\":\"\",\"created\":\"\",\"modified\":\"\",\"accessed\":\"\",\"files\":0,"
        "\"folders\":0,\"depth\":0,\"error\":\"\"}\n";
    EXPECT_EQ(ObjectsOf(JsonOf(tree, PlainJson())), expected);
}

// The name itself is whole, but the path is not.
TEST(JsonLinesWriter, ARowBelowALossyFolderIsLossyToo) {
    ScanTree tree;
    tree.AddFile(tree.AddFolder(tree.root, RowSupport::Units({0xDE00})), L"a");
    JsonLinesOptions options = PlainJson();
    options.rows.folders = false;
    const std::string json = JsonOf(tree, options);
    EXPECT_EQ(RowSupport::OnlyMember(json, "path"), "\"\xEF\xBF\xBD\\\\a\"");
    EXPECT_EQ(RowSupport::OnlyMember(json, "lossy"), "true");
}

TEST(JsonLinesWriter, TheFirstLineIsLossyForItsOwnTextsOnly) {
    ScanTree tree(RowSupport::Units({'C', ':', '\\', 0xD800}));
    tree.AddFile(tree.root, L"a");
    const std::string json = JsonOf(tree, PlainJson());
    const std::string first = json.substr(0, json.find('\n'));
    EXPECT_NE(first.find("\"root\":\"C:\\\\\xEF\xBF\xBD\""), std::string::npos);
    EXPECT_EQ(first.substr(first.size() - 14), ",\"lossy\":true}");
    EXPECT_EQ(json.find("lossy", first.size()), std::string::npos);

    JsonLinesOptions options = PlainJson();
    options.preset = RowSupport::Units({0xDC00});
    const std::string named = JsonOf(ScanTree(), options);
    EXPECT_NE(named.find("\"preset\":\"\xEF\xBF\xBD\",\"created\":\"\",\"lossy\":true}\n"),
              std::string::npos);
}

}  // namespace
