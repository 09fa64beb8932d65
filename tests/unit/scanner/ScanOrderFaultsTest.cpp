// Scans of entries whose order and attributes only the stand-in can choose.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "FakeWin.h"
#include "scanner/Scan.h"
#include "unit/scanner/RecordingListener.h"
#include "unit/scanner/TestTree.h"

using namespace Scanner;

namespace {

using Names = std::vector<std::wstring>;

class ScanOrder : public testing::Test {
protected:
    ScanOrder() {
        options.recursive = true;
        options.listener = &listener;
    }
    ~ScanOrder() override { EXPECT_EQ(FakeWin::LeftOpen(), ""); }

    bool Run() { return Scan(result, options, L"C:\\Data"); }

    RecordingListener listener;
    Options options;
    Result result;
};

}  // namespace

TEST_F(ScanOrder, KeepsTheOrderOfTheFileSystemWithoutKeys) {
    FakeWin::AddFolder(L"C:\\Data\\z\\y");
    FakeWin::AddFile(L"C:\\Data\\m");
    FakeWin::AddFolder(L"C:\\Data\\a");
    FakeWin::AddFolder(L"C:\\Data\\z\\b");
    FakeWin::AddFile(L"C:\\Data\\c");
    EXPECT_TRUE(Run());
    EXPECT_EQ(Lines(result.root), (Names{L"m", L"c", L"z\\", L"z\\y\\", L"z\\b\\", L"a\\"}));
}

TEST_F(ScanOrder, WalksDepthFirstInTheOrderOfTheFileSystem) {
    FakeWin::AddFolder(L"C:\\Data\\z\\y\\deep");
    FakeWin::AddFolder(L"C:\\Data\\a\\b");
    FakeWin::AddFolder(L"C:\\Data\\z\\x");
    EXPECT_TRUE(Run());
    Names queries;
    for (const FakeWin::FindCall& call : FakeWin::FindCalls())
        queries.push_back(call.query);
    EXPECT_EQ(queries, (Names{L"\\\\?\\C:\\Data\\*", L"\\\\?\\C:\\Data\\z\\*", L"\\\\?\\C:\\Data\\z\\y\\*",
                              L"\\\\?\\C:\\Data\\z\\y\\deep\\*", L"\\\\?\\C:\\Data\\z\\x\\*",
                              L"\\\\?\\C:\\Data\\a\\*", L"\\\\?\\C:\\Data\\a\\b\\*"}));
}

TEST_F(ScanOrder, FlattensInTheOrderOfTheWalk) {
    FakeWin::AddFile(L"C:\\Data\\z\\same");
    FakeWin::AddFolder(L"C:\\Data\\z\\y");
    FakeWin::AddFile(L"C:\\Data\\SAME");
    FakeWin::AddFile(L"C:\\Data\\a\\Same");
    options.flatten = true;
    options.collectFolders = true;
    options.collectFiles = true;
    options.fileSortKeys = {{Comparison::Name, true}};
    EXPECT_TRUE(Run());
    EXPECT_EQ(FolderNames(result.root), (Names{L"z", L"a", L"y"}));
    EXPECT_EQ(FileNames(result.root), (Names{L"SAME", L"same", L"Same"}));
    EXPECT_EQ(listener.Only(L"progress"),
              (Names{L"progress: Post processing... Recursively sorting folder and file list...",
                     L"progress: Post processing... Sorting flattened folder list (3 items)...",
                     L"progress: Post processing... Sorting flattened file list (3 items)..."}));
}

TEST_F(ScanOrder, SkipsTheAttributesOfEachBitOfTheMask) {
    const struct {
        uint8_t bit;
        DWORD attribute;
    } rows[] = {
        {1 << 0, 0x1}, {1 << 1, 0x20},  {1 << 2, 0x800}, {1 << 3, 0x4000},
        {1 << 4, 0x2}, {1 << 5, 0x400}, {1 << 6, 0x4},   {1 << 7, 0x100},
    };
    for (const auto& row : rows) {
        const std::wstring name = std::to_wstring(row.attribute);
        FakeWin::AddFile(L"C:\\Data\\file" + name, 0, row.attribute);
        FakeWin::AddFile(L"C:\\Data\\folder" + name + L"\\x", 0, 0);
        FakeWin::SetAttributes(L"C:\\Data\\folder" + name, row.attribute | FILE_ATTRIBUTE_DIRECTORY);
    }
    EXPECT_TRUE(Run());
    const Names all = SortedLines(result.root);
    EXPECT_EQ(all.size(), 24u);
    for (const auto& row : rows) {
        const std::wstring name = std::to_wstring(row.attribute);
        Names expected = all;
        std::erase(expected, L"file" + name);
        std::erase(expected, L"folder" + name + L"\\");
        std::erase(expected, L"folder" + name + L"\\x");
        options.attributeMask = row.bit;
        Result masked;
        EXPECT_TRUE(Scan(masked, options, L"C:\\Data"));
        EXPECT_EQ(SortedLines(masked.root), expected) << int{row.bit};
    }
    options.attributeMask = 0xFF;
    Result none;
    EXPECT_TRUE(Scan(none, options, L"C:\\Data"));
    EXPECT_TRUE(Lines(none.root).empty());
}

TEST_F(ScanOrder, EntersReparsePointsAsPlainFolders) {
    FakeWin::AddFile(L"C:\\Data\\link\\x");
    FakeWin::SetAttributes(L"C:\\Data\\link", FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT);
    EXPECT_TRUE(Run());
    EXPECT_EQ(Lines(result.root), (Names{L"link\\", L"link\\x"}));
    EXPECT_EQ(Find(result.root, L"link").attributes, 0x410u);
}

TEST_F(ScanOrder, TakesEachOfTheThreeTimes) {
    const FILETIME created = FakeWin::MakeFileTime(2001, 2, 3);
    const FILETIME accessed = FakeWin::MakeFileTime(2011, 12, 13);
    const FILETIME written = FakeWin::MakeFileTime(2021, 2, 23);
    FakeWin::AddFile(L"C:\\Data\\folder\\file");
    for (const wchar_t* path : {L"C:\\Data", L"C:\\Data\\folder", L"C:\\Data\\folder\\file"})
        FakeWin::SetTimes(path, created, accessed, written);
    EXPECT_TRUE(Run());
    const Record* const records[] = {result.root.folder, &Find(result.root, L"folder"),
                                     &Find(result.root, L"folder\\file")};
    for (const Record* record : records) {
        SCOPED_TRACE(record->depth);
        EXPECT_EQ(CompareFileTime(&record->timeCreated, &created), 0);
        EXPECT_EQ(CompareFileTime(&record->lastTimeAccessed, &accessed), 0);
        EXPECT_EQ(CompareFileTime(&record->lastTimeWritten, &written), 0);
    }
}

TEST_F(ScanOrder, KeepsNamesThatAreNoValidText) {
    const std::wstring name = {L'a', static_cast<wchar_t>(0xD800), L'.', static_cast<wchar_t>(0xDC00), L'b'};
    FakeWin::AddFile(L"C:\\Data\\" + name);
    EXPECT_TRUE(Run());
    const File& file = *result.root.files.at(0);
    EXPECT_EQ(file.fullName, name);
    EXPECT_EQ(file.name, name.substr(0, 2));
    EXPECT_EQ(file.extension, name.substr(3));
}

TEST_F(ScanOrder, SkipsTheDotEntriesAlone) {
    FakeWin::AddFile(L"C:\\Data\\...");
    FakeWin::AddFile(L"C:\\Data\\.a");
    FakeWin::AddFolder(L"C:\\Data\\..b");
    EXPECT_TRUE(Run());
    EXPECT_EQ(Lines(result.root), (Names{L"...", L".a", L"..b\\"}));
}

TEST_F(ScanOrder, ReadsADeepTree) {
    constexpr int Levels = 4000;
    std::wstring path = L"C:\\Data";
    for (int level = 0; level < Levels; ++level)
        path += L"\\d";
    FakeWin::AddFile(path + L"\\x", 5);
    FakeWin::SetLogging(false);
    options.flatten = true;
    options.collectFolders = true;
    options.collectFiles = true;
    options.folderSortKeys = {{Comparison::Path, true}};
    EXPECT_TRUE(Run());
    ASSERT_EQ(result.root.folders.size(), size_t{Levels});
    EXPECT_EQ(result.root.folders.back().folder->depth, Levels - 1);
    EXPECT_EQ(result.root.folder->size, 5u);
}

TEST_F(ScanOrder, NeedsMoreThanOneBlockForManyEntries) {
    for (int i = 0; i < 10'000; ++i)
        FakeWin::AddFile(L"C:\\Data\\" + std::to_wstring(i) + L".some_extension", 1);
    EXPECT_TRUE(Run());
    ASSERT_EQ(result.root.files.size(), 10'000u);
    for (size_t i = 0; i < 10'000; ++i)
        ASSERT_EQ(result.root.files[i]->name, std::to_wstring(i));
    EXPECT_EQ(result.root.folder->size, 10'000u);
}
