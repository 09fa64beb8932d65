#include "scanner/PostProcess.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "unit/scanner/TestTree.h"

using namespace Scanner;

namespace {

using Names = std::vector<std::wstring>;

const Comparator NoFolderKeys({}, true, false);
const Comparator NoFileKeys({}, false, false);

Comparator Folders(Comparison key, bool ascending = true) {
    return Comparator({{key, ascending}}, true, false);
}
Comparator Files(Comparison key, bool ascending = true) {
    return Comparator({{key, ascending}}, false, false);
}

}  // namespace

TEST(PostProcess, SumsUpFromTheBottom) {
    TestTree tree({
        AFile(L"r", 1),
        AFolder(L"a", {AFile(L"a1", 10), AFile(L"a2", 20), AFolder(L"b", {AFile(L"b1", 100)})}),
        AFolder(L"c", {AFolder(L"d"), AFolder(L"e", {AFile(L"e1", 0x1'0000'0000)})}),
    });
    PostProcess(tree.Root(), NoFolderKeys, NoFileKeys);

    const struct {
        const wchar_t* path;
        uint64_t size;
        uint64_t totalFolders;
        uint64_t totalFiles;
        uint64_t folderCount;
        uint64_t fileCount;
    } rows[] = {
        {L"a", 130, 1, 3, 1, 2},  {L"a\\b", 100, 0, 1, 0, 1},           {L"c", 0x1'0000'0000, 2, 1, 2, 0},
        {L"c\\d", 0, 0, 0, 0, 0}, {L"c\\e", 0x1'0000'0000, 0, 1, 0, 1},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.path, row.path + std::wstring(row.path).size()));
        const Folder& folder = Find(tree.Root(), row.path);
        EXPECT_EQ(folder.size, row.size);
        EXPECT_EQ(folder.totalFolders, row.totalFolders);
        EXPECT_EQ(folder.totalFiles, row.totalFiles);
        EXPECT_EQ(folder.folderCount, row.folderCount);
        EXPECT_EQ(folder.fileCount, row.fileCount);
    }
    const Folder& root = *tree.Root().folder;
    EXPECT_EQ(root.size, 0x1'0000'0000u + 131);
    EXPECT_EQ(root.totalFolders, 5u);
    EXPECT_EQ(root.totalFiles, 5u);
    EXPECT_EQ(root.folderCount, 2u);
    EXPECT_EQ(root.fileCount, 1u);
}

TEST(PostProcess, GivesAnEmptyFolderNoSize) {
    TestTree tree({AFolder(L"empty")});
    ASSERT_EQ(Find(tree.Root(), L"empty").size, 4096u);
    PostProcess(tree.Root(), NoFolderKeys, NoFileKeys);
    EXPECT_EQ(Find(tree.Root(), L"empty").size, 0u);
    EXPECT_EQ(tree.Root().folder->size, 0u);
}

TEST(PostProcess, SortsEachFolderByItself) {
    TestTree tree({
        AFile(L"z.txt"),
        AFile(L"A.txt"),
        AFolder(L"b", {AFile(L"2"), AFile(L"1"), AFolder(L"y"), AFolder(L"X")}),
        AFolder(L"a"),
    });
    PostProcess(tree.Root(), Folders(Comparison::Name), Files(Comparison::Name));
    EXPECT_EQ(Lines(tree.Root()),
              (Names{L"A.txt", L"z.txt", L"a\\", L"b\\", L"b\\1", L"b\\2", L"b\\X\\", L"b\\y\\"}));
}

TEST(PostProcess, KeepsTheOrderOfTheWalkWithoutKeys) {
    TestTree tree({AFile(L"z"), AFile(L"a"), AFolder(L"y"), AFolder(L"b")});
    PostProcess(tree.Root(), NoFolderKeys, Files(Comparison::Name));
    EXPECT_EQ(FolderNames(tree.Root()), (Names{L"y", L"b"}));
    EXPECT_EQ(FileNames(tree.Root()), (Names{L"a", L"z"}));

    TestTree other({AFile(L"z"), AFile(L"a"), AFolder(L"y"), AFolder(L"b")});
    PostProcess(other.Root(), Folders(Comparison::Name), NoFileKeys);
    EXPECT_EQ(FolderNames(other.Root()), (Names{L"b", L"y"}));
    EXPECT_EQ(FileNames(other.Root()), (Names{L"z", L"a"}));
}

TEST(PostProcess, SortsFoldersByWhatLiesAnywhereInThem) {
    TestTree tree({
        AFolder(L"large", {AFolder(L"deep", {AFile(L"x", 1000)})}),
        AFolder(L"small", {AFile(L"x", 10), AFile(L"y", 10)}),
        AFolder(L"none"),
    });
    PostProcess(tree.Root(), Folders(Comparison::Size), NoFileKeys);
    EXPECT_EQ(FolderNames(tree.Root()), (Names{L"none", L"small", L"large"}));
    PostProcess(tree.Root(), Folders(Comparison::NumberOfFiles, false), NoFileKeys);
    EXPECT_EQ(FolderNames(tree.Root()), (Names{L"small", L"none", L"large"}));
    PostProcess(tree.Root(), Folders(Comparison::NumberOfFolders, false), NoFileKeys);
    EXPECT_EQ(FolderNames(tree.Root()), (Names{L"large", L"small", L"none"}));
}

TEST(PostProcess, MovesSubtreesWithTheirFolders) {
    TestTree tree({AFolder(L"b", {AFile(L"in b")}), AFolder(L"a", {AFolder(L"c"), AFile(L"in a")})});
    PostProcess(tree.Root(), Folders(Comparison::Name), NoFileKeys);
    EXPECT_EQ(Lines(tree.Root()), (Names{L"a\\", L"a\\in a", L"a\\c\\", L"b\\", L"b\\in b"}));
}

TEST(PostProcess, PutsTheLargerOfTwoEqualStemsFirst) {
    TestTree tree({AFile(L"a.txt", 1), AFile(L"a.doc", 2), AFile(L"A.ini", 3), AFile(L"0", 4)});
    PostProcess(tree.Root(), NoFolderKeys,
                Comparator({{Comparison::Name, true}, {Comparison::Size, false}}, false, false));
    EXPECT_EQ(FileNames(tree.Root()), (Names{L"0", L"A.ini", L"a.doc", L"a.txt"}));
}

TEST(PostProcess, LeavesTiesInTheirOrder) {
    TestTree files({AFile(L"readme"), AFile(L"README"), AFile(L"ReadMe"), AFile(L"a"), AFile(L"reADme")});
    PostProcess(files.Root(), NoFolderKeys, Files(Comparison::Name));
    EXPECT_EQ(FileNames(files.Root()), (Names{L"a", L"readme", L"README", L"ReadMe", L"reADme"}));
    PostProcess(files.Root(), NoFolderKeys, Files(Comparison::Name, false));
    EXPECT_EQ(FileNames(files.Root()), (Names{L"readme", L"README", L"ReadMe", L"reADme", L"a"}));

    TestTree folders({AFolder(L"b"), AFolder(L"Sub"), AFolder(L"SUB"), AFolder(L"sub"), AFolder(L"a")});
    PostProcess(folders.Root(), Folders(Comparison::Name), NoFileKeys);
    EXPECT_EQ(FolderNames(folders.Root()), (Names{L"a", L"b", L"Sub", L"SUB", L"sub"}));
}

// More than a sort's short runs, so that its merging has to be stable as well.
TEST(PostProcess, LeavesTiesInTheirOrderInLongLists) {
    std::vector<TestEntry> entries;
    for (int i = 0; i < 5000; ++i) {
        entries.push_back(AFile(std::to_wstring(i), static_cast<uint64_t>(i * 7919 % 10)));
        entries.push_back(AFolder(std::to_wstring(i), {AFile(L"x", static_cast<uint64_t>(i * 7919 % 10))}));
    }
    TestTree tree(entries);
    PostProcess(tree.Root(), Folders(Comparison::Size, false), Files(Comparison::Size));
    for (size_t i = 1; i < 5000; ++i) {
        const File& a = *tree.Root().files[i - 1];
        const File& b = *tree.Root().files[i];
        ASSERT_TRUE(a.size < b.size || (a.size == b.size && std::stoi(a.name) < std::stoi(b.name))) << i;
        const Folder& c = *tree.Root().folders[i - 1].folder;
        const Folder& d = *tree.Root().folders[i].folder;
        ASSERT_TRUE(c.size > d.size || (c.size == d.size && std::stoi(c.name) < std::stoi(d.name))) << i;
    }
}

TEST(PostProcess, DoesNotTouchASingleEntry) {
    TestTree tree({AFolder(L"only", {AFile(L"one")})});
    const Node* const folder = tree.Root().folders.data();
    File* const* const file = folder->files.data();
    PostProcess(tree.Root(), Folders(Comparison::Name), Files(Comparison::Name));
    EXPECT_EQ(tree.Root().folders.data(), folder);
    EXPECT_EQ(folder->files.data(), file);
    EXPECT_EQ(Lines(tree.Root()), (Names{L"only\\", L"only\\one"}));
}

TEST(PostProcess, LeavesTiesOfADescendingPathAlone) {
    TestTree tree({AFile(L"b"), AFile(L"c"), AFile(L"a"), AFolder(L"x"), AFolder(L"y")});
    PostProcess(tree.Root(), Folders(Comparison::Path, false), Files(Comparison::Path, false));
    EXPECT_EQ(FileNames(tree.Root()), (Names{L"b", L"c", L"a"}));
    EXPECT_EQ(FolderNames(tree.Root()), (Names{L"y", L"x"}));
}

TEST(PostProcess, TakesNoCallStackForDepth) {
    constexpr int Levels = 200'000;
    std::vector<Record> records(Levels + 1, Record{});
    Node root(&records[0]);
    Node* node = &root;
    for (size_t level = 1; level <= Levels; ++level)
        node = &node->folders.emplace_back(&records[level]);
    File file{};
    file.size = 5;
    node->files.push_back(&file);
    PostProcess(root, NoFolderKeys, NoFileKeys);
    EXPECT_EQ(root.folder->totalFolders, static_cast<uint64_t>(Levels));
    EXPECT_EQ(root.folder->totalFiles, 1u);
    EXPECT_EQ(root.folder->size, 5u);
}
