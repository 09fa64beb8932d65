#include "console/list/FileHasher.h"

#include <gtest/gtest.h>

#include "RowSupport.h"
#include "support/TempFolder.h"

using Console::FileHash;
using Console::FileHasher;
using RowSupport::CsvOf;
using RowSupport::JsonOf;
using RowSupport::OnlyCell;
using RowSupport::OnlyMember;

namespace {

// The test vectors of the standard.
const std::string HashOfNothing = "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855";
const std::string HashOfAbc = "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad";
const std::string HashOfAMillionA = "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0";

constexpr size_t ErrorCell = 12;
constexpr size_t HashCell = 13;

struct FileHasherTest : testing::Test {
    // Adds a file to the folder and the tree.
    Scanner::File& Add(const std::wstring& name, const std::string& contents) {
        folder.AddFile(name, contents);
        return tree.AddFile(tree.root, name, contents.size());
    }

    TestSupport::TempFolder folder;
    ScanTree tree{folder.Path()};
    FileHasher hasher{0, {.progress = false, .warnings = false}};
};

}  // namespace

TEST_F(FileHasherTest, ComputesTheHashesOfTheStandard) {
    EXPECT_EQ(hasher.Hash(Add(L"nothing", "")).hex, HashOfNothing);
    EXPECT_EQ(hasher.Hash(Add(L"short", "abc")).hex, HashOfAbc);
    EXPECT_EQ(hasher.Hash(Add(L"long", std::string(1'000'000, 'a'))).hex, HashOfAMillionA);
    EXPECT_EQ(hasher.Hash(Add(L"again", "abc")).hex, HashOfAbc);
    EXPECT_EQ(hasher.Unreadable(), 0u);
}

TEST_F(FileHasherTest, AFileWithAHashHasNoError) {
    EXPECT_EQ(hasher.Hash(Add(L"short", "abc")).error, "");
}

TEST_F(FileHasherTest, ReadsFilesWithLongPaths) {
    const std::wstring first(200, L'a');
    const std::wstring second(200, L'b');
    folder.AddFile(first + L"\\" + second + L"\\file", "abc");
    Scanner::Node& node = tree.AddFolder(tree.AddFolder(tree.root, first), second);
    EXPECT_EQ(hasher.Hash(tree.AddFile(node, L"file", 3)).hex, HashOfAbc);
}

TEST_F(FileHasherTest, TheContentsAtTheMomentOfReadingCount) {
    Scanner::File& file = Add(L"file", "a file that was longer");
    folder.AddFile(L"file", "abc");
    EXPECT_EQ(hasher.Hash(file).hex, HashOfAbc);
}

TEST_F(FileHasherTest, AFileThatWasRemovedIsUnreadable) {
    const FileHash hash = hasher.Hash(tree.AddFile(tree.root, L"removed", 3));
    EXPECT_EQ(hash.hex, "");
    EXPECT_EQ(hash.error, "unreadable");
    EXPECT_EQ(hasher.Unreadable(), 1u);
}

TEST_F(FileHasherTest, LinksAndFilesElsewhereAreNotOpened) {
    Scanner::File& file = Add(L"file", "abc");
    for (const uint32_t attribute : {0x400u, 0x1000u, 0x40000u, 0x400000u}) {
        file.attributes = FILE_ATTRIBUTE_ARCHIVE | attribute;
        const FileHash hash = hasher.Hash(file);
        EXPECT_EQ(hash.hex, "") << attribute;
        EXPECT_EQ(hash.error, "offline") << attribute;
    }
    EXPECT_EQ(hasher.Unreadable(), 0u);
    file.attributes = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_COMPRESSED;
    EXPECT_EQ(hasher.Hash(file).hex, HashOfAbc);
}

TEST_F(FileHasherTest, TablesHaveTheHashInTheirLastField) {
    Add(L"file", "abc");
    const std::string csv = CsvOf(tree, {.rows = {.hasher = &hasher}});
    EXPECT_NE(csv.find(",depth,error,sha256\r\n"), std::string::npos);
    EXPECT_EQ(OnlyCell(csv, ErrorCell), "");
    EXPECT_EQ(OnlyCell(csv, HashCell), HashOfAbc);
    Console::JsonLinesOptions json = RowSupport::PlainJson();
    json.rows.hasher = &hasher;
    EXPECT_EQ(OnlyMember(JsonOf(tree, json), "sha256"), "\"" + HashOfAbc + "\"");
    EXPECT_EQ(OnlyMember(JsonOf(tree, json), "error"), "\"\"");
}

TEST_F(FileHasherTest, TablesHaveNoHashUnlessItIsAskedFor) {
    Add(L"file", "abc");
    EXPECT_EQ(CsvOf(tree).find("sha256"), std::string::npos);
    const std::string json = JsonOf(tree, RowSupport::PlainJson());
    EXPECT_EQ(json.find("sha256"), std::string::npos);
    EXPECT_EQ(json.find("unreadable_files"), std::string::npos);
}

TEST_F(FileHasherTest, FoldersHaveNoHash) {
    folder.AddFolder(L"Sub");
    tree.AddFolder(tree.root, L"Sub");
    EXPECT_EQ(OnlyCell(CsvOf(tree, {.rows = {.hasher = &hasher}}), HashCell), "");
    Console::JsonLinesOptions json = RowSupport::PlainJson();
    json.rows.hasher = &hasher;
    EXPECT_EQ(OnlyMember(JsonOf(tree, json), "sha256"), "no member");
    EXPECT_EQ(hasher.Unreadable(), 0u);
}

TEST_F(FileHasherTest, TablesSayWhyAFileHasNoHash) {
    tree.AddFile(tree.root, L"removed", 3);
    const std::string csv = CsvOf(tree, {.rows = {.hasher = &hasher}});
    EXPECT_EQ(OnlyCell(csv, ErrorCell), "unreadable");
    EXPECT_EQ(OnlyCell(csv, HashCell), "");
    Console::JsonLinesOptions options = RowSupport::PlainJson();
    options.rows.hasher = &hasher;
    const std::string json = JsonOf(tree, options);
    EXPECT_EQ(OnlyMember(json, "error"), "\"unreadable\"");
    EXPECT_EQ(OnlyMember(json, "sha256"), "no member");
    EXPECT_TRUE(json.ends_with("\"unreadable\":0,\"unreadable_files\":2}\n")) << json;
}
