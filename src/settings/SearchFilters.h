// The predefined search filters. Presets store the index of a filter, so rows must keep their order.
#pragma once

#include <array>

struct SearchFilter {
    const wchar_t* label;
    const wchar_t* pattern;  // empty in the last row, which selects the preset's own pattern
};

extern const std::array<SearchFilter, 9> SearchFilters;
