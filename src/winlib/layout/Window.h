// The leaf of a layout: one real window and how it lies in its cell.
#pragma once

#include "winlib/layout/Sizer.h"

namespace WinLib::Layout {

class Window : public Sizer {
public:
    // The window's present rectangle is its minimum until the next Measure.
    Window(HWND window, Alignment horizontal, Alignment vertical);

    // Moves the window, unless it lies there already.
    void Arrange(const RECT& rect) override;
    void Measure() override;

    HWND Handle;
    Alignment Horizontal;
    Alignment Vertical;
};

}  // namespace WinLib::Layout
