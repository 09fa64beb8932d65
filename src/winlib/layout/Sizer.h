// Arithmetic of a resizable dialog: a tree of sizers measures the controls once as the resource drew them,
// takes that as minimum, and spreads any extra room over the children that ask for it. Only Window touches
// the platform. All rectangles are in pixels, in client coordinates of the dialog.
#pragma once

#include <cstdint>

#include "winlib/Windows.h"

namespace WinLib::Layout {

enum class Alignment : uint32_t {
    Near = 0,  // left or top
    Center = 1,
    Far = 2,  // right or bottom
    Fill = 3,
};

inline LONG Width(const RECT& rect) {
    return rect.right - rect.left;
}
inline LONG Height(const RECT& rect) {
    return rect.bottom - rect.top;
}

class Sizer {
public:
    Sizer() = default;
    Sizer(const Sizer&) = delete;
    Sizer& operator=(const Sizer&) = delete;

    // Places the sizer and what it holds on rect, but never below the minimum: a rect that is too small grows
    // to the right and downward.
    virtual void Arrange(const RECT& rect);

    // Reads the controls' present places and makes them the minimum.
    virtual void Measure() {}

    virtual ~Sizer() = default;

    RECT MinimumRect = {};  // parents use only its width and height
    RECT CurrentRect = {};
};

}  // namespace WinLib::Layout
