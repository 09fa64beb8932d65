// Scans of real folders, or of the stand-in's. No test here depends on the order of an enumeration, nor on
// the time of creation, which Wine does not keep.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "unit/scanner/ScanTest.h"

using namespace Scanner;

namespace {

using Names = std::vector<std::wstring>;

bool operator==(const FILETIME& a, const FILETIME& b) {
    return CompareFileTime(&a, &b) == 0;
}

}  // namespace

TEST_F(ScanTest, FindsEverythingBelowThePath) {
    folder.AddFile(L"top.txt");
    folder.AddFile(L"a\\one.txt");
    folder.AddFile(L"a\\b\\c\\deep.txt");
    folder.AddFolder(L"empty");
    ASSERT_TRUE(Run());
    EXPECT_EQ(SortedLines(result.root), (Names{L"a\\", L"a\\b\\", L"a\\b\\c\\", L"a\\b\\c\\deep.txt",
                                               L"a\\one.txt", L"empty\\", L"top.txt"}));
    EXPECT_TRUE(listener.Only(L"error").empty());
}

TEST_F(ScanTest, ScansAnEmptyFolder) {
    ASSERT_TRUE(Run());
    EXPECT_TRUE(Lines(result.root).empty());
    EXPECT_EQ(result.root.folder->size, 0u);
}

TEST_F(ScanTest, FillsTheRoot) {
    folder.AddFile(L"x", 3);
    const FILETIME accessed = {2000, 0x01D10000};
    const FILETIME written = {3000, 0x01D20000};
    folder.AddFolder(L"root");
    folder.SetTimes(L"root", accessed, accessed, written);
    ASSERT_TRUE(Scan(result, options, folder.Path(L"root\\\\")));
    const Folder& root = *result.root.folder;
    EXPECT_EQ(root.parent, nullptr);
    EXPECT_EQ(root.name, folder.Path(L"root"));
    EXPECT_EQ(root.fullName, root.name);
    EXPECT_EQ(root.extension, EmptyText);
    EXPECT_EQ(root.flags, 0u);
    EXPECT_EQ(root.depth, -1);
    EXPECT_NE(root.attributes & FILE_ATTRIBUTE_DIRECTORY, 0u);
    EXPECT_TRUE(root.lastTimeAccessed == accessed);
    EXPECT_TRUE(root.lastTimeWritten == written);
}

TEST_F(ScanTest, FillsFolders) {
    const FILETIME accessed = {2000, 0x01D10000};
    const FILETIME written = {3000, 0x01D20000};
    folder.AddFile(L"Some.Folder\\sub.x\\x");
    folder.SetTimes(L"Some.Folder", accessed, accessed, written);
    ASSERT_TRUE(Run());
    const Folder& record = Find(result.root, L"Some.Folder");
    EXPECT_EQ(record.parent, result.root.folder);
    EXPECT_STREQ(record.name, L"Some.Folder");
    EXPECT_EQ(record.fullName, record.name);
    EXPECT_EQ(record.extension, EmptyText);
    EXPECT_EQ(record.flags, 0u);
    EXPECT_EQ(record.depth, 0);
    EXPECT_NE(record.attributes & FILE_ATTRIBUTE_DIRECTORY, 0u);
    EXPECT_EQ(record.totalFolders, 1u);
    EXPECT_EQ(record.totalFiles, 1u);
    EXPECT_EQ(record.folderCount, 1u);
    EXPECT_EQ(record.fileCount, 0u);
    EXPECT_TRUE(record.lastTimeAccessed == accessed);
    EXPECT_TRUE(record.lastTimeWritten == written);

    const Folder& sub = Find(result.root, L"Some.Folder\\sub.x");
    EXPECT_EQ(sub.parent, &record);
    EXPECT_EQ(sub.depth, 1);
    EXPECT_EQ(Find(result.root, L"Some.Folder\\sub.x\\x").depth, 2);
}

TEST_F(ScanTest, FillsFiles) {
    const FILETIME accessed = {2000, 0x01D10000};
    const FILETIME written = {3000, 0x01D20000};
    folder.AddFile(L"sub\\archive.tar.gz", 0x1'0000'0007, FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN);
    folder.SetTimes(L"sub\\archive.tar.gz", accessed, accessed, written);
    ASSERT_TRUE(Run());
    const File& file = Find(result.root, L"sub\\archive.tar.gz");
    EXPECT_EQ(file.parent, &Find(result.root, L"sub"));
    EXPECT_STREQ(file.fullName, L"archive.tar.gz");
    EXPECT_STREQ(file.name, L"archive.tar");
    EXPECT_STREQ(file.extension, L"gz");
    EXPECT_EQ(file.flags, 0u);
    EXPECT_EQ(file.attributes & (FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_DIRECTORY),
              DWORD{FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN});
    EXPECT_EQ(file.depth, 1);
    EXPECT_EQ(file.folderCount, 0u);
    EXPECT_EQ(file.fileCount, 0u);
    EXPECT_EQ(file.size, 0x1'0000'0007u);
    EXPECT_TRUE(file.lastTimeAccessed == accessed);
    EXPECT_TRUE(file.lastTimeWritten == written);
}

TEST_F(ScanTest, StopsAtTheFirstLevelUnlessRecursive) {
    options.recursive = false;
    folder.AddFile(L"a\\inside.txt");
    folder.AddFile(L"a\\b\\deeper.txt");
    folder.AddFile(L"top.txt");
    ASSERT_TRUE(Run());
    EXPECT_EQ(SortedLines(result.root), (Names{L"a\\", L"top.txt"}));
    EXPECT_EQ(Find(result.root, L"a").fileCount, 0u);
    EXPECT_EQ(result.root.folder->totalFolders, 1u);
}

TEST_F(ScanTest, KeepsListsWithoutSlack) {
    for (int i = 0; i < 21; ++i) {
        folder.AddFile(L"f" + std::to_wstring(i));
        folder.AddFolder(L"d" + std::to_wstring(i));
    }
    ASSERT_TRUE(Run());
    EXPECT_EQ(result.root.files.size(), 21u);
    EXPECT_EQ(result.root.files.capacity(), 21u);
    EXPECT_EQ(result.root.folders.capacity(), 21u);
}

TEST_F(ScanTest, SortsByTheKeys) {
    options.folderSortKeys = {{Comparison::Name, true}};
    options.fileSortKeys = {{Comparison::Size, false}};
    folder.AddFile(L"small", 1);
    folder.AddFile(L"large", 100);
    folder.AddFile(L"b\\x");
    folder.AddFolder(L"C");
    folder.AddFolder(L"a");
    ASSERT_TRUE(Run());
    EXPECT_EQ(Lines(result.root), (Names{L"large", L"small", L"a\\", L"b\\", L"b\\x", L"C\\"}));
}

TEST_F(ScanTest, FlattensWhatIsCollected) {
    const struct {
        bool collectFolders;
        bool collectFiles;
        Names folders;
        Names files;
    } rows[] = {
        {true, true, {L"a", L"b", L"c", L"d"}, {L"1", L"2", L"3"}},
        {true, false, {L"a", L"b", L"c", L"d"}, {}},
        {false, true, {}, {L"1", L"2", L"3"}},
        {false, false, {}, {}},
    };
    folder.AddFile(L"1", 1);
    folder.AddFile(L"a\\2", 2);
    folder.AddFile(L"a\\b\\3", 3);
    folder.AddFolder(L"a\\b\\c\\d");
    options.flatten = true;
    options.folderSortKeys = {{Comparison::Name, true}};
    options.fileSortKeys = {{Comparison::Name, true}};
    for (const auto& row : rows) {
        options.collectFolders = row.collectFolders;
        options.collectFiles = row.collectFiles;
        Result flat;
        ASSERT_TRUE(Scan(flat, options, folder.Path()));
        EXPECT_EQ(FolderNames(flat.root), row.folders);
        EXPECT_EQ(FileNames(flat.root), row.files);
        EXPECT_EQ(flat.root.folder->totalFolders, 4u);
        EXPECT_EQ(flat.root.folder->totalFiles, 3u);
        EXPECT_EQ(flat.root.folder->size, 6u);
    }
}

TEST_F(ScanTest, KeepsDepthAndParentsOfFlattenedEntries) {
    folder.AddFile(L"a\\b\\c\\d\\x");
    options.flatten = true;
    options.collectFolders = true;
    options.collectFiles = true;
    ASSERT_TRUE(Run());
    const Folder& deepest = Find(result.root, L"a\\b\\c\\d");
    EXPECT_EQ(deepest.depth, 3);
    EXPECT_EQ(deepest.parent, &Find(result.root, L"a\\b\\c"));
    EXPECT_EQ(deepest.fileCount, 1u);
    EXPECT_EQ(result.root.files.at(0)->depth, 4);
    EXPECT_EQ(result.root.files.at(0)->parent, &deepest);
}

TEST_F(ScanTest, KeepsTheTreeWhateverIsCollected) {
    folder.AddFile(L"a\\x");
    options.collectFolders = false;
    options.collectFiles = false;
    ASSERT_TRUE(Run());
    EXPECT_EQ(SortedLines(result.root), (Names{L"a\\", L"a\\x"}));
}

TEST_F(ScanTest, ReadsPathsLongerThanTheUsualLimit) {
    std::wstring path;
    for (int i = 0; i < 40; ++i)
        path += L"level_of_the_tree\\";
    folder.AddFile(path + L"x");
    ASSERT_TRUE(Run());
    EXPECT_EQ(Find(result.root, path + L"x").depth, 40);
    EXPECT_EQ(result.root.folder->totalFolders, 40u);
}

TEST_F(ScanTest, ReportsAMissingFolder) {
    EXPECT_FALSE(Scan(result, options, folder.Path(L"missing\\")));
    EXPECT_EQ(listener.calls, (Names{L"error: The folder '" + folder.Path(L"missing") +
                                     L"' does not exist or cannot be accessed by the application.\n"
                                     L"The listing proccess will be cancelled."}));
    EXPECT_EQ(result.root.folder->attributes, 0u);
}

TEST_F(ScanTest, EndsInSilenceForAKeyWithoutAComparison) {
    options.folderSortKeys = {{static_cast<Comparison>(0), true}};
    EXPECT_FALSE(Run());
    EXPECT_EQ(listener.calls, Names{});
}

TEST_F(ScanTest, EndsInSilenceForAnyException) {
    class Throwing : public RecordingListener {
    public:
        bool IsCancelled() override { throw 1; }
    } throwing;
    options.listener = &throwing;
    EXPECT_FALSE(Run());
    EXPECT_EQ(throwing.calls, Names{});
}

TEST_F(ScanTest, IsFalseWhenItIsCancelledAtTheEnd) {
    listener.cancelAtQuestion = 3;
    EXPECT_FALSE(Run());
}
