// The layout of a resizable dialog. A tree of sizers measures the controls once, as the resource places them,
// takes that as the minimum, and distributes extra space to the children with a stretch value. Only Window
// calls the platform. All rectangles are in pixels, in client coordinates of the dialog.
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

// The empty space around the children of a stack. Sides that are left out have none.
struct Margins {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
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

    // Places the sizer and its children on rect. A rect smaller than the minimum is enlarged to the right and
    // downward.
    virtual void Arrange(const RECT& rect);

    // Takes the current rectangles of the controls as the minimum.
    virtual void Measure() {}

    virtual ~Sizer() = default;

    RECT MinimumRect = {};  // parents use only its width and height
    RECT CurrentRect = {};
};

}  // namespace WinLib::Layout
