// The sort key that orders by the folders which hold the records.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "scanner/Comparator.h"
#include "support/Text.h"
#include "unit/scanner/TestTree.h"

using namespace Scanner;

namespace {

class ComparePath : public testing::Test {
protected:
    // Negative, zero or positive, from both directions.
    int Order(bool folderMode, const std::wstring& a, const std::wstring& b) {
        const Comparator comparator({{Comparison::Path, true}}, folderMode, false);
        const Record& first = Find(tree.Root(), a);
        const Record& second = Find(tree.Root(), b);
        const bool before = comparator.Compare(first, second);
        const bool behind = comparator.Compare(second, first);
        EXPECT_FALSE(before && behind);
        return behind - before;
    }

    TestTree tree{{
        AFile(L"top.txt"),
        AFile(L"another.txt"),
        AFolder(L"x",
                {
                    AFile(L"one.txt"),
                    AFile(L"two.txt"),
                    AFolder(L"y", {AFile(L"deep.txt"), AFolder(L"a", {AFile(L"deepest.txt")})}),
                    AFolder(L"b", {AFile(L"side.txt")}),
                }),
        AFolder(L"x2", {AFile(L"other.txt")}),
        AFolder(L"A", {AFolder(L"z")}),
        AFolder(L"a", {AFolder(L"b")}),
    }};
};

struct OrderRow {
    const wchar_t* a;
    const wchar_t* b;
    int expected;
};

}  // namespace

TEST_F(ComparePath, OrdersFoldersTopDown) {
    const OrderRow rows[] = {
        {L"x", L"x", 0},
        {L"x", L"x2", -1},
        {L"x", L"x\\y", -1},
        {L"x", L"x\\y\\a", -1},
        {L"x\\y", L"x2", -1},
        {L"x\\y\\a", L"x2", -1},
        {L"x\\b", L"x\\y", -1},
        {L"x\\b", L"x\\y\\a", -1},
        {L"x2", L"a", 1},
        {L"x", L"a\\b", 1},
        // Folders whose names differ in case alone tie, and so does all that lies in them.
        {L"A", L"a", 0},
        {L"A\\z", L"a\\b", 0},
        {L"A\\z", L"a", 0},
    };
    for (const OrderRow& row : rows)
        EXPECT_EQ(Order(true, row.a, row.b), row.expected)
            << TestSupport::Utf8(row.a) << " and " << TestSupport::Utf8(row.b);
}

TEST_F(ComparePath, OrdersFilesByTheirFolders) {
    const OrderRow rows[] = {
        {L"top.txt", L"another.txt", 0},
        {L"x\\one.txt", L"x\\two.txt", 0},
        {L"top.txt", L"x\\one.txt", -1},
        {L"x\\two.txt", L"x\\y\\deep.txt", -1},
        {L"x\\two.txt", L"x\\b\\side.txt", -1},
        {L"x\\two.txt", L"x\\y\\a\\deepest.txt", -1},
        {L"x\\b\\side.txt", L"x\\y\\deep.txt", -1},
        {L"x\\b\\side.txt", L"x\\y\\a\\deepest.txt", -1},
        {L"x\\y\\a\\deepest.txt", L"x2\\other.txt", -1},
        {L"x2\\other.txt", L"another.txt", 1},
    };
    for (const OrderRow& row : rows)
        EXPECT_EQ(Order(false, row.a, row.b), row.expected)
            << TestSupport::Utf8(row.a) << " and " << TestSupport::Utf8(row.b);
}

// The order is defined by two chains of folders, walked from the root to where they part. Built here in that
// plain way and compared for every pair of a tree.
TEST_F(ComparePath, AgreesWithTheChainsOfFolders) {
    const auto chainOf = [](bool folderMode, const Record& record) {
        std::vector<const Folder*> chain;
        for (const Folder* folder = folderMode ? &record : record.parent; folder; folder = folder->parent)
            chain.insert(chain.begin(), folder);
        return chain;
    };
    const Comparator names({{Comparison::Name, true}}, true, false);

    const FlatLists lists = tree.Flat();
    for (const bool folderMode : {true, false}) {
        const Comparator paths({{Comparison::Path, true}}, folderMode, false);
        const std::vector<Record*>& records = folderMode ? lists.folders : lists.files;
        for (const Record* a : records) {
            for (const Record* b : records) {
                const auto chainA = chainOf(folderMode, *a);
                const auto chainB = chainOf(folderMode, *b);
                const auto [endA, endB] =
                    std::mismatch(chainA.begin(), chainA.end(), chainB.begin(), chainB.end());
                const bool expected = endA == chainA.end()   ? endB != chainB.end()
                                      : endB == chainB.end() ? false
                                                             : names.Compare(**endA, **endB);
                EXPECT_EQ(paths.Compare(*a, *b), expected)
                    << TestSupport::Utf8(PathOf(*a)) << " and " << TestSupport::Utf8(PathOf(*b));
            }
        }
    }
}
