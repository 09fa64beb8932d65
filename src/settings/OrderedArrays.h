// The arrays of columns and sort keys. A preset holds every column and key, in an order and each with a flag;
// code writes only the short list that comes first.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>
#include <type_traits>
#include <utility>

#include "settings/Enumerations.h"

// The entries of the short lists: a column and whether it is shown, or a sort key and its order.
using FolderColumnPair = std::pair<FolderColumn, bool>;
using FileColumnPair = std::pair<FileColumn, bool>;
using FolderSortPair = std::pair<FolderSortKey, SortOrder>;
using FileSortPair = std::pair<FileSortKey, SortOrder>;

// Those of a new preset and of the plain templates.
inline constexpr FolderColumnPair DefaultFolderColumns[] = {{FolderColumn::PathAndName, true}};
inline constexpr FileColumnPair DefaultFileColumns[] = {{FileColumn::PathAndFilename, true}};
inline constexpr FolderSortPair DefaultFolderSort[] = {
    {FolderSortKey::Path, SortOrder::Ascending},
    {FolderSortKey::Name, SortOrder::Ascending},
    {FolderSortKey::Size, SortOrder::Descending},
};
inline constexpr FileSortPair DefaultFileSort[] = {
    {FileSortKey::Path, SortOrder::Ascending},
    {FileSortKey::Name, SortOrder::Ascending},
    {FileSortKey::Extension, SortOrder::Ascending},
    {FileSortKey::Size, SortOrder::Descending},
};

// Fill the pair of arrays from a short list of (value, flag): first the listed values in their order, then
// all others of 0 to N-1 in ascending order with the flag 0. REQUIRES: no value is listed twice.
template <typename Value, typename Order, size_t N>
constexpr void FillSortKeys(std::type_identity_t<std::span<const std::pair<Value, Order>>> pairs,
                            std::array<Value, N>& values, std::array<Order, N>& orders) {
    std::array<Value, N> all{};
    std::ranges::generate(all, [number = uint32_t{0}]() mutable { return static_cast<Value>(number++); });
    auto rest = all.end();
    for (size_t i = 0; i < pairs.size(); ++i) {
        rest = std::remove(all.begin(), rest, pairs[i].first);
        values[i] = pairs[i].first;
        orders[i] = pairs[i].second;
    }
    std::copy(all.begin(), rest, values.begin() + static_cast<ptrdiff_t>(pairs.size()));
    std::fill(orders.begin() + static_cast<ptrdiff_t>(pairs.size()), orders.end(), Order{});
}
template <typename Value, size_t N>
constexpr void FillColumns(std::type_identity_t<std::span<const std::pair<Value, bool>>> pairs,
                           std::array<Value, N>& values, std::array<bool, N>& enabled) {
    FillSortKeys(pairs, values, enabled);
}
