#include <gtest/gtest.h>

#include <set>

#include "settings/OrderedArrays.h"
#include "support/Random.h"

namespace {

// Any of the values, none twice, each with a flag that is not the one of the rest.
template <typename Value, typename Flag, size_t N>
std::vector<std::pair<Value, Flag>> RandomPairs(Random& random, Flag flag) {
    std::vector<std::pair<Value, Flag>> pairs;
    for (uint32_t value = 0; value < N; ++value)
        pairs.push_back({static_cast<Value>(value), random.Bool() ? flag : Flag{}});
    random.Shuffle(pairs);
    pairs.resize(random.Below(N + 1));
    return pairs;
}

// The arrays begin with the pairs and go on with every other value, in ascending order and without flag.
template <typename Value, typename Flag, size_t N>
void ExpectFilled(const std::vector<std::pair<Value, Flag>>& pairs, const std::array<Value, N>& values,
                  const std::array<Flag, N>& flags) {
    for (size_t i = 0; i < pairs.size(); ++i) {
        EXPECT_EQ(values[i], pairs[i].first);
        EXPECT_EQ(flags[i], pairs[i].second);
    }
    for (size_t i = pairs.size(); i < N; ++i) {
        EXPECT_EQ(flags[i], Flag{});
        if (i > pairs.size())
            EXPECT_LT(values[i - 1], values[i]);
    }
    const std::set<Value> different(values.begin(), values.end());
    EXPECT_EQ(different.size(), N);
    EXPECT_LT(static_cast<uint32_t>(*different.rbegin()), N);
}

template <typename Value, size_t N>
void CheckColumns(Random& random) {
    const auto pairs = RandomPairs<Value, bool, N>(random, true);
    std::array<Value, N> values;
    std::array<bool, N> enabled;
    FillColumns(pairs, values, enabled);
    ExpectFilled(pairs, values, enabled);
}

template <typename Value, size_t N>
void CheckSortKeys(Random& random) {
    const auto pairs = RandomPairs<Value, SortOrder, N>(random, SortOrder::Descending);
    std::array<Value, N> values;
    std::array<SortOrder, N> orders;
    FillSortKeys(pairs, values, orders);
    ExpectFilled(pairs, values, orders);
}

TEST(FillProperties, ColumnsAreAPermutation) {
    ForRandomInputs(500, CheckColumns<FolderColumn, FolderColumnCount>);
    ForRandomInputs(500, CheckColumns<FileColumn, FileColumnCount>);
}

TEST(FillProperties, SortKeysAreAPermutation) {
    ForRandomInputs(500, CheckSortKeys<FolderSortKey, FolderSortKeyCount>);
    ForRandomInputs(500, CheckSortKeys<FileSortKey, FileSortKeyCount>);
}

}  // namespace
