// The templates that a new preset can start from, and the builders of its column and sort arrays.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <utility>

class Preset;

inline constexpr uint32_t TemplateCount = 6;

// What the user reads; the index is the template's number.
extern const std::array<const wchar_t*, TemplateCount> TemplateNames;

// Gives the preset the values of the template, its name included. Key and position stay.
// REQUIRES: number < TemplateCount.
void ApplyTemplate(Preset& preset, uint32_t number);

// Fill the pair of arrays from a short list of (value, flag): first the listed values in their order, then all
// others of 0 to N-1 in ascending order with the flag 0.
template <typename Value, size_t N>
void FillColumns(std::span<const std::pair<Value, bool>> pairs, std::array<Value, N>& values,
                 std::array<bool, N>& enabled);
template <typename Value, typename Order, size_t N>
void FillSortKeys(std::span<const std::pair<Value, Order>> pairs, std::array<Value, N>& values,
                  std::array<Order, N>& orders);
