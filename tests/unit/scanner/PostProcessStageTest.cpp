#include "scanner/PostProcessStage.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "unit/scanner/RecordingListener.h"
#include "unit/scanner/TestTree.h"

using namespace Scanner;

namespace {

using Names = std::vector<std::wstring>;

const wchar_t Recursively[] = L"progress: Post processing... Recursively sorting folder and file list...";
const wchar_t FlatFolders[] = L"progress: Post processing... Sorting flattened folder list (4 items)...";
const wchar_t FlatFiles[] = L"progress: Post processing... Sorting flattened file list (5 items)...";

Names Paths(const std::vector<Node>& nodes) {
    Names paths;
    for (const Node& node : nodes)
        paths.push_back(PathOf(*node.folder));
    return paths;
}
Names Paths(const std::vector<File*>& files) {
    Names paths;
    for (const File* file : files)
        paths.push_back(PathOf(*file));
    return paths;
}

class PostProcessStage : public testing::Test {
protected:
    PostProcessStage() { options.listener = &listener; }

    bool Complete() {
        lists = tree.Flat();
        return RunPostProcessStage(tree.Root(), options, options.flatten ? &lists : nullptr);
    }

    TestTree tree{{
        AFile(L"b.txt", 1),
        AFolder(L"x2", {AFile(L"c.txt", 2)}),
        AFolder(L"x", {AFolder(L"y", {AFile(L"d.txt", 4), AFile(L"a.txt", 8)})}),
        AFolder(L"v", {AFile(L"B.txt", 16)}),
    }};
    RecordingListener listener;
    Options options;
    FlatLists lists;
};

}  // namespace

TEST_F(PostProcessStage, ReportsAndAsksInThisOrder) {
    EXPECT_TRUE(Complete());
    EXPECT_EQ(listener.calls, (Names{L"cancelled?", Recursively, L"cancelled?", L"cancelled?"}));
}

TEST_F(PostProcessStage, ReportsTheFlatListsAsWell) {
    options.flatten = true;
    EXPECT_TRUE(Complete());
    EXPECT_EQ(listener.calls,
              (Names{L"cancelled?", Recursively, L"cancelled?", FlatFolders, L"cancelled?", FlatFiles}));
}

TEST_F(PostProcessStage, StopsWhereItIsCancelled) {
    const struct {
        int cancelAtQuestion;
        Names calls;
    } rows[] = {
        {1, {L"cancelled?", L"cancelled?", L"cancelled?"}},
        {2, {L"cancelled?", Recursively, L"cancelled?", L"cancelled?"}},
        {3, {L"cancelled?", Recursively, L"cancelled?", FlatFolders, L"cancelled?"}},
    };
    options.flatten = true;
    for (const auto& row : rows) {
        RecordingListener cancelling;
        cancelling.cancelAtQuestion = row.cancelAtQuestion;
        options.listener = &cancelling;
        TestTree fresh{{AFolder(L"x", {AFile(L"a"), AFile(L"b"), AFolder(L"y")}), AFolder(L"z"),
                        AFolder(L"v"), AFile(L"c"), AFile(L"d"), AFile(L"e")}};
        lists = fresh.Flat();
        EXPECT_FALSE(RunPostProcessStage(fresh.Root(), options, &lists));
        EXPECT_EQ(cancelling.calls, row.calls) << row.cancelAtQuestion;
    }
}

TEST_F(PostProcessStage, SortsTheTreeByBothLists) {
    options.folderSortKeys = {{Comparison::Name, true}};
    options.fileSortKeys = {{Comparison::Name, false}};
    EXPECT_TRUE(Complete());
    EXPECT_EQ(Lines(tree.Root()), (Names{L"b.txt", L"v\\", L"v\\B.txt", L"x\\", L"x\\y\\", L"x\\y\\d.txt",
                                         L"x\\y\\a.txt", L"x2\\", L"x2\\c.txt"}));
}

TEST_F(PostProcessStage, FlattensInTheOrderOfTheWalkWithoutKeys) {
    options.flatten = true;
    EXPECT_TRUE(Complete());
    EXPECT_EQ(Paths(tree.Root().folders), (Names{L"x2", L"x", L"v", L"x\\y"}));
    EXPECT_EQ(Paths(tree.Root().files),
              (Names{L"b.txt", L"x2\\c.txt", L"x\\y\\d.txt", L"x\\y\\a.txt", L"v\\B.txt"}));
}

TEST_F(PostProcessStage, KeepsTheRecordsOfAFlattenedTree) {
    options.flatten = true;
    EXPECT_TRUE(Complete());
    for (const Node& node : tree.Root().folders) {
        EXPECT_TRUE(node.folders.empty());
        EXPECT_TRUE(node.files.empty());
        EXPECT_NE(node.folder->parent, nullptr);
    }
    const Folder& deep = Find(tree.Root(), L"x\\y");
    EXPECT_EQ(deep.depth, 1);
    EXPECT_EQ(deep.parent, &Find(tree.Root(), L"x"));
    EXPECT_EQ(deep.size, 12u);
    EXPECT_EQ(deep.fileCount, 2u);
    const Folder& root = *tree.Root().folder;
    EXPECT_EQ(root.size, 31u);
    EXPECT_EQ(root.totalFolders, 4u);
    EXPECT_EQ(root.totalFiles, 5u);
    EXPECT_EQ(root.folderCount, 3u);
    EXPECT_EQ(root.fileCount, 1u);
}

TEST_F(PostProcessStage, SortsTheFlatListsByPath) {
    options.flatten = true;
    options.folderSortKeys = {{Comparison::Path, true}};
    options.fileSortKeys = {{Comparison::Path, true}, {Comparison::Name, true}};
    EXPECT_TRUE(Complete());
    EXPECT_EQ(Paths(tree.Root().folders), (Names{L"v", L"x", L"x\\y", L"x2"}));
    EXPECT_EQ(Paths(tree.Root().files),
              (Names{L"b.txt", L"v\\B.txt", L"x\\y\\a.txt", L"x\\y\\d.txt", L"x2\\c.txt"}));
}

TEST_F(PostProcessStage, LeavesFilesOfAFolderTogetherOnADescendingPath) {
    options.flatten = true;
    options.fileSortKeys = {{Comparison::Path, false}};
    EXPECT_TRUE(Complete());
    EXPECT_EQ(Paths(tree.Root().files),
              (Names{L"x2\\c.txt", L"x\\y\\d.txt", L"x\\y\\a.txt", L"v\\B.txt", L"b.txt"}));
}

// Of the sorted tree only the totals live on in the flat lists.
TEST_F(PostProcessStage, LeavesFlatTiesInTheOrderOfTheWalk) {
    TestTree ties{
        {AFolder(L"b", {AFile(L"same"), AFolder(L"sub")}), AFolder(L"a", {AFile(L"SAME")}), AFolder(L"Sub")}};
    options.flatten = true;
    options.fileSortKeys = {{Comparison::Name, true}};
    options.folderSortKeys = {{Comparison::Name, true}};
    lists = ties.Flat();
    EXPECT_TRUE(RunPostProcessStage(ties.Root(), options, &lists));
    EXPECT_EQ(Paths(ties.Root().files), (Names{L"b\\same", L"a\\SAME"}));
    EXPECT_EQ(Paths(ties.Root().folders), (Names{L"a", L"b", L"Sub", L"b\\sub"}));
}

TEST_F(PostProcessStage, EmptiesTheRootIfNothingWasCollected) {
    options.flatten = true;
    FlatLists none;
    EXPECT_TRUE(RunPostProcessStage(tree.Root(), options, &none));
    EXPECT_TRUE(tree.Root().folders.empty());
    EXPECT_TRUE(tree.Root().files.empty());
    EXPECT_EQ(tree.Root().folder->totalFiles, 5u);
    EXPECT_EQ(listener.Only(L"progress: Post processing... Sorting"),
              (Names{L"progress: Post processing... Sorting flattened folder list (0 items)...",
                     L"progress: Post processing... Sorting flattened file list (0 items)..."}));
}

TEST_F(PostProcessStage, SortsDigitsAsNumbersInBothLists) {
    TestTree numbered{{AFile(L"a10"), AFile(L"a2"), AFolder(L"b10"), AFolder(L"b2")}};
    options.folderSortKeys = {{Comparison::Name, true}};
    options.fileSortKeys = {{Comparison::Name, true}};
    EXPECT_TRUE(RunPostProcessStage(numbered.Root(), options, nullptr));
    EXPECT_EQ(Lines(numbered.Root()), (Names{L"a10", L"a2", L"b10\\", L"b2\\"}));
    options.naturalSort = true;
    EXPECT_TRUE(RunPostProcessStage(numbered.Root(), options, nullptr));
    EXPECT_EQ(Lines(numbered.Root()), (Names{L"a2", L"a10", L"b2\\", L"b10\\"}));
}

// Were a folder comparator used on files, two files of one folder would not tie.
TEST_F(PostProcessStage, UsesTheFileComparatorForFiles) {
    TestTree pair{{AFile(L"b"), AFile(L"a"), AFolder(L"d"), AFolder(L"c")}};
    options.folderSortKeys = {{Comparison::Path, true}};
    options.fileSortKeys = {{Comparison::Path, true}};
    EXPECT_TRUE(RunPostProcessStage(pair.Root(), options, nullptr));
    EXPECT_EQ(Lines(pair.Root()), (Names{L"b", L"a", L"c\\", L"d\\"}));
}

TEST_F(PostProcessStage, ThrowsForAKeyWithoutAComparisonBeforeItAsksAnything) {
    options.fileSortKeys = {{static_cast<Comparison>(0), true}};
    EXPECT_THROW(Complete(), std::invalid_argument);
    EXPECT_EQ(listener.calls, Names{});
}
