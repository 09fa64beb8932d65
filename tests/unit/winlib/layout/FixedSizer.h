// A leaf of a layout without a window: has a fixed minimum and counts what is asked of it.
#pragma once

#include <memory>
#include <ostream>
#include <tuple>

#include "winlib/layout/Overlapped.h"
#include "winlib/layout/Stack.h"

inline bool operator==(const RECT& one, const RECT& other) {
    return std::tie(one.left, one.top, one.right, one.bottom) ==
           std::tie(other.left, other.top, other.right, other.bottom);
}

inline std::ostream& operator<<(std::ostream& out, const RECT& rect) {
    return out << rect.left << ", " << rect.top << ", " << rect.right << ", " << rect.bottom;
}

class FixedSizer : public WinLib::Layout::Sizer {
public:
    explicit FixedSizer(const RECT& rect) { MinimumRect = CurrentRect = rect; }
    void Measure() override { ++Measured; }

    int Measured = 0;
};

// Appends one to a stack, as the stack's own builders append theirs.
inline FixedSizer* AddFixed(WinLib::Layout::Stack& stack, int stretch, const RECT& rect) {
    auto sizer = std::make_unique<FixedSizer>(rect);
    FixedSizer* const added = sizer.get();
    stack.Children.push_back(std::move(sizer));
    stack.Stretch.push_back(stretch);
    stack.TotalStretch += stretch;
    return added;
}

inline FixedSizer* AddFixed(WinLib::Layout::Overlapped& overlapped, const RECT& rect) {
    auto sizer = std::make_unique<FixedSizer>(rect);
    FixedSizer* const added = sizer.get();
    overlapped.Children.push_back(std::move(sizer));
    return added;
}
