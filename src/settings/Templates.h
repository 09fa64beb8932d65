// The templates that a new preset can start from, and the builders of its column and sort arrays.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <type_traits>
#include <utility>

class Preset;

inline constexpr uint32_t TemplateCount = 6;

// What the user reads; the index is the template's number.
extern const std::array<const wchar_t*, TemplateCount> TemplateNames;

// Gives the preset the values of the template, its name included. Key and position stay.
// REQUIRES: number < TemplateCount.
void ApplyTemplate(Preset& preset, uint32_t number);

// Fill the pair of arrays from a short list of (value, flag): first the listed values in their order, then
// all others of 0 to N-1 in ascending order with the flag 0. REQUIRES: no value is listed twice.
template <typename Value, typename Order, size_t N>
void FillSortKeys(std::type_identity_t<std::span<const std::pair<Value, Order>>> pairs,
                  std::array<Value, N>& values, std::array<Order, N>& orders) {
    std::array<Value, N> all;
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
void FillColumns(std::type_identity_t<std::span<const std::pair<Value, bool>>> pairs,
                 std::array<Value, N>& values, std::array<bool, N>& enabled) {
    FillSortKeys(pairs, values, enabled);
}
