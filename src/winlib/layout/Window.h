// The leaf of a layout: a window and its alignment within its cell.
#pragma once

#include "winlib/layout/Sizer.h"

namespace WinLib::Layout {

class Window : public Sizer {
public:
    // The current rectangle of the window is its minimum until the next Measure.
    Window(HWND window, Alignment horizontal, Alignment vertical);

    // Moves the window, unless it is there already.
    void Arrange(const RECT& rect) override;
    void Measure() override;

    HWND Handle;
    Alignment Horizontal;
    Alignment Vertical;
};

}  // namespace WinLib::Layout
