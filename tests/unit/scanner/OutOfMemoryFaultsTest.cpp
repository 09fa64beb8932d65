// Scans that run out of memory.
#include <gtest/gtest.h>

#include <new>
#include <string>
#include <vector>

#include "FakeWin.h"
#include "scanner/PostProcess.h"
#include "scanner/Scan.h"
#include "support/native/ScarceMemory.h"
#include "unit/scanner/RecordingListener.h"
#include "unit/scanner/TestTree.h"

using namespace Scanner;

namespace {

// A block of either arena takes more; nothing else in these scans does.
constexpr size_t BlockBytes = RecordPool::BlockCapacity * sizeof(Record);

}  // namespace

TEST(OutOfMemory, ThrowsFromTheConstructionOfAResult) {
    for (const int sparedBlocks : {0, 1}) {
        const ScarceMemory scarce(BlockBytes, sparedBlocks);
        EXPECT_THROW(Result(), std::bad_alloc);
    }
}

TEST(OutOfMemory, EndsAScanInSilence) {
    for (int i = 0; i < 5000; ++i)
        FakeWin::AddFile(L"C:\\Data\\sub\\" + std::to_wstring(i) + L".a_rather_long_extension");
    RecordingListener listener;
    Options options;
    options.recursive = true;
    options.listener = &listener;

    int failures = 0;
    for (int sparedBlocks = 0;; ++sparedBlocks) {
        listener.calls.clear();
        Result result;
        const ScarceMemory scarce(BlockBytes, sparedBlocks);
        if (Scan(result, options, L"C:\\Data"))
            break;
        ++failures;
        EXPECT_TRUE(ScarceMemory::HasStruck());
        EXPECT_TRUE(listener.calls.empty());
        EXPECT_EQ(FakeWin::LeftOpen(), "");
    }
    EXPECT_EQ(failures, 2) << "one more block of records and one of names";
}

TEST(OutOfMemory, SortsAllTheSame) {
    std::vector<TestEntry> entries;
    for (int i = 0; i < 1000; ++i) {
        entries.push_back(AFile(std::to_wstring(i), static_cast<uint64_t>(i * 7919 % 10)));
        entries.push_back(AFolder(std::to_wstring(i)));
    }
    TestTree tree(entries);
    for (Node& node : tree.Root().folders)
        node.folder->size = static_cast<uint64_t>(std::stoi(node.folder->name) * 7919 % 10);
    const Comparator bySize({{Comparison::Size, true}}, false, false);
    {
        const ScarceMemory scarce(1);
        SortFiles(tree.Root().files, bySize);
        EXPECT_TRUE(ScarceMemory::HasStruck());
        SortFolders(tree.Root().folders, bySize);
    }
    const auto inOrder = [](const Record& a, const Record& b) {
        return a.size < b.size || (a.size == b.size && std::stoi(a.name) < std::stoi(b.name));
    };
    for (size_t i = 1; i < 1000; ++i) {
        ASSERT_TRUE(inOrder(*tree.Root().files[i - 1], *tree.Root().files[i])) << i;
        ASSERT_TRUE(inOrder(*tree.Root().folders[i - 1].folder, *tree.Root().folders[i].folder)) << i;
    }
}

TEST(OutOfMemory, TakesNoneForASingleEntry) {
    TestTree tree({AFolder(L"only"), AFile(L"one")});
    const Comparator byName({{Comparison::Name, true}}, false, false);
    const ScarceMemory scarce(1);
    SortFiles(tree.Root().files, byName);
    SortFolders(tree.Root().folders, byName);
    EXPECT_FALSE(ScarceMemory::HasStruck()) << "there is nothing to sort";
}

// What is left of a scan goes when there is no memory to be had.
TEST(OutOfMemory, DestroysATreeAllTheSame) {
    TestTree tree({AFolder(L"a", {AFolder(L"b", {AFile(L"x"), AFolder(L"c")}), AFolder(L"d")})});
    const ScarceMemory scarce(1);
    tree.Root() = Node();
    EXPECT_TRUE(tree.Root().folders.empty());
    EXPECT_FALSE(ScarceMemory::HasStruck());
}
