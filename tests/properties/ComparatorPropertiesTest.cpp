#include <gtest/gtest.h>

#include "properties/RandomTree.h"
#include "properties/SortKeys.h"
#include "scanner/Comparator.h"
#include "support/Text.h"

using namespace Scanner;

namespace {

using Records = std::vector<Record*>;

std::string Show(const Record& record) {
    std::string text = TestSupport::Utf8(record.fullName);
    for (const Record* folder = record.parent; folder != nullptr; folder = folder->parent)
        text = TestSupport::Utf8(folder->name) + "\\" + text;
    return text;
}

// Every three records: a record is not before itself, two are not before each other, and both being before
// and being neither carry on from one pair to the next.
void ExpectStrictWeakOrder(const Comparator& comparator, const Records& records) {
    const auto before = [&](const Record* a, const Record* b) { return comparator.Compare(*a, *b); };
    const auto tied = [&](const Record* a, const Record* b) { return !before(a, b) && !before(b, a); };
    for (const Record* a : records) {
        ASSERT_FALSE(before(a, a)) << Show(*a);
        for (const Record* b : records) {
            ASSERT_FALSE(before(a, b) && before(b, a)) << Show(*a) << "\n" << Show(*b);
            for (const Record* c : records) {
                if (before(a, b) && before(b, c))
                    ASSERT_TRUE(before(a, c)) << Show(*a) << "\n" << Show(*b) << "\n" << Show(*c);
                if (tied(a, b) && tied(b, c))
                    ASSERT_TRUE(tied(a, c)) << Show(*a) << "\n" << Show(*b) << "\n" << Show(*c);
            }
        }
    }
}

// So many of them, from anywhere in the tree.
Records Some(Random& random, Records records, size_t count) {
    random.Shuffle(records);
    records.resize(std::min(records.size(), count));
    return records;
}

TEST(ComparatorProperties, FoldersHaveAStrictWeakOrder) {
    ForRandomInputs(
        200,
        [](Random& random) {
            const RandomTree tree(random, 80);
            const Comparator comparator(RandomKeys(random, true), true, random.Bool());
            ExpectStrictWeakOrder(comparator, Some(random, tree.Folders(), 14));
        });
}

TEST(ComparatorProperties, FilesHaveAStrictWeakOrder) {
    ForRandomInputs(
        200,
        [](Random& random) {
            const RandomTree tree(random, 80);
            const Comparator comparator(RandomKeys(random, false), false, random.Bool());
            ExpectStrictWeakOrder(comparator, Some(random, tree.Files(), 14));
        });
}

TEST(ComparatorProperties, TurningEveryKeyTurnsTheOrder) {
    ForRandomInputs(
        200,
        [](Random& random) {
            const RandomTree tree(random, 40);
            const bool natural = random.Bool();
            std::vector<SortKey> keys = RandomKeys(random, false);
            const Comparator comparator(keys, false, natural);
            for (SortKey& key : keys)
                key.ascending = !key.ascending;
            const Comparator turned(keys, false, natural);
            for (const Record* a : tree.Files())
                for (const Record* b : tree.Files())
                    ASSERT_EQ(comparator.Compare(*a, *b), turned.Compare(*b, *a)) << Show(*a) << "\n"
                                                                                  << Show(*b);
        });
}

}  // namespace
