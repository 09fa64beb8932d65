// The ready-made filters that a preset can choose from by their index. The indices are stored, so the rows
// keep their places.
#pragma once

#include <array>

struct SearchFilter {
    const wchar_t* label;
    const wchar_t* pattern;  // empty in the last row, which selects the preset's own pattern
};

extern const std::array<SearchFilter, 9> SearchFilters;
