// Sorting and totals of a whole tree.
#include <gtest/gtest.h>

#include "properties/RandomTree.h"
#include "properties/SortKeys.h"
#include "scanner/PostProcess.h"

using namespace Scanner;

namespace {

// Each record comes before those that it must precede, and before no other.
template <typename Element, typename Before>
std::vector<Element> InsertionSorted(const std::vector<Element>& elements, Before before) {
    std::vector<Element> sorted;
    for (const Element& element : elements) {
        auto place = sorted.end();
        while (place != sorted.begin() && before(element, *(place - 1)))
            --place;
        sorted.insert(place, element);
    }
    return sorted;
}

std::vector<Folder*> RecordsOf(const std::vector<Node>& nodes) {
    std::vector<Folder*> records;
    for (const Node& node : nodes)
        records.push_back(node.folder);
    return records;
}

TEST(SortProperties, FilesAreSortedStably) {
    ForRandomInputs(
        200,
        [](Random& random) {
            RandomTree tree(random, 120);
            const Comparator comparator(RandomKeys(random, false), false, random.Bool());
            std::vector<File*> files = tree.Files();
            random.Shuffle(files);
            const std::vector<File*> expected = InsertionSorted(
                files, [&](const File* a, const File* b) { return comparator.Compare(*a, *b); });
            SortFiles(files, comparator);
            EXPECT_EQ(files, expected);
        });
}

TEST(SortProperties, FoldersAreSortedStably) {
    ForRandomInputs(
        200,
        [](Random& random) {
            RandomTree tree(random, 200);
            const Comparator comparator(RandomKeys(random, true), true, random.Bool());
            std::vector<Folder*> records = tree.Folders();
            random.Shuffle(records);
            std::vector<Node> folders;
            for (Folder* folder : records)
                folders.emplace_back(folder);
            SortFolders(folders, comparator);
            EXPECT_EQ(
                RecordsOf(folders),
                InsertionSorted(
                    records, [&](const Record* a, const Record* b) { return comparator.Compare(*a, *b); }));
        });
}

struct Totals {
    uint64_t folders = 0;
    uint64_t files = 0;
    uint64_t size = 0;
};

// Counts by itself and compares with the records. Sizes may run over, as any sum of 64 bits.
Totals ExpectTotals(const Node& node) {
    Totals totals = {node.folders.size(), node.files.size(), 0};
    for (const Node& child : node.folders) {
        const Totals below = ExpectTotals(child);
        totals.folders += below.folders;
        totals.files += below.files;
        totals.size += below.size;
    }
    for (const File* file : node.files)
        totals.size += file->size;
    EXPECT_EQ(node.folder->totalFolders, totals.folders);
    EXPECT_EQ(node.folder->totalFiles, totals.files);
    EXPECT_EQ(node.folder->size, totals.size);
    EXPECT_EQ(node.folder->folderCount, node.folders.size());
    EXPECT_EQ(node.folder->fileCount, node.files.size());
    return totals;
}

void ExpectSorted(const Node& node, const Comparator& folders, const Comparator& files) {
    for (size_t i = 1; i < node.folders.size(); ++i)
        EXPECT_FALSE(folders.Compare(*node.folders[i].folder, *node.folders[i - 1].folder));
    for (size_t i = 1; i < node.files.size(); ++i)
        EXPECT_FALSE(files.Compare(*node.files[i], *node.files[i - 1]));
    for (const Node& child : node.folders)
        ExpectSorted(child, folders, files);
}

TEST(PostProcessProperties, TotalsAreThoseOfTheTreeAndEveryListIsSorted) {
    ForRandomInputs(
        200,
        [](Random& random) {
            RandomTree tree(random, 300);
            const bool natural = random.Bool();
            const Comparator folders(RandomKeys(random, true), true, natural);
            const Comparator files(RandomKeys(random, false), false, natural);
            PostProcess(tree.Root(), folders, files);
            const Totals totals = ExpectTotals(tree.Root());
            EXPECT_EQ(totals.folders, tree.Folders().size());
            EXPECT_EQ(totals.files, tree.Files().size());
            ExpectSorted(tree.Root(), folders, files);
        });
}

}  // namespace
