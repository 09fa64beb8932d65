#include "winlib/layout/Stack.h"

#include <algorithm>

namespace WinLib::Layout {

namespace {

// The measures of a stack's children: the position of the first, the sum and the maximum of their widths and
// of their heights.
struct Extent {
    POINT origin;
    SIZE sum;
    SIZE largest;
};

Extent MeasureAll(const std::vector<std::unique_ptr<Sizer>>& children) {
    for (const auto& child : children)
        child->Measure();
    const RECT& first = children.front()->MinimumRect;
    Extent extent = {{first.left, first.top}, {}, {}};
    for (const auto& child : children) {
        const RECT& rect = child->MinimumRect;
        extent.origin = {std::min(extent.origin.x, rect.left), std::min(extent.origin.y, rect.top)};
        extent.sum = {extent.sum.cx + Width(rect), extent.sum.cy + Height(rect)};
        extent.largest = {std::max(extent.largest.cx, Width(rect)),
                          std::max(extent.largest.cy, Height(rect))};
    }
    return extent;
}

// Returns the rectangle of a measured stack: its content and the margins.
RECT WithMargins(POINT origin, SIZE content, const RECT& margins) {
    return {origin.x - margins.left, origin.y - margins.top, origin.x + content.cx + margins.right,
            origin.y + content.cy + margins.bottom};
}

}  // namespace

Stack::Stack(const Layout::Margins& margins, int horizontalGap, int verticalGap)
    : Margins{margins.left, margins.top, margins.right, margins.bottom},
      HorizontalGap(horizontalGap),
      VerticalGap(verticalGap) {
    MinimumRect = CurrentRect = {0, 0, margins.left + margins.right, margins.top + margins.bottom};
}

int Stack::Share(size_t i, int extra) const {
    const float part = static_cast<float>(Stretch[i]) / static_cast<float>(std::max(TotalStretch, 1));
    return std::min(extra, static_cast<int>(part * static_cast<float>(extra)));
}

void HStack::Arrange(const RECT& rect) {
    Sizer::Arrange(rect);
    const LONG top = CurrentRect.top + Margins.top;
    const LONG bottom = CurrentRect.bottom - Margins.bottom;
    const LONG extra = std::max<LONG>(Width(CurrentRect) - Width(MinimumRect), 0);
    LONG x = CurrentRect.left + Margins.left;
    for (size_t i = 0; i < Children.size(); ++i) {
        const LONG right = x + Width(Children[i]->MinimumRect) + Share(i, extra);
        Children[i]->Arrange({x, top, right, bottom});
        x = right + HorizontalGap;
    }
}

void HStack::Measure() {
    if (Children.empty())
        return;
    const Extent extent = MeasureAll(Children);
    const LONG gaps = HorizontalGap * (static_cast<LONG>(Children.size()) - 1);
    MinimumRect = CurrentRect =
        WithMargins(extent.origin, {extent.sum.cx + gaps, extent.largest.cy}, Margins);
}

void VStack::Arrange(const RECT& rect) {
    Sizer::Arrange(rect);
    const LONG left = CurrentRect.left + Margins.left;
    const LONG right = CurrentRect.right - Margins.right;
    const LONG extra = std::max<LONG>(Height(CurrentRect) - Height(MinimumRect), 0);
    LONG y = CurrentRect.top + Margins.top;
    for (size_t i = 0; i < Children.size(); ++i) {
        const LONG bottom = y + Height(Children[i]->MinimumRect) + Share(i, extra);
        Children[i]->Arrange({left, y, right, bottom});
        y = bottom + VerticalGap;
    }
}

void VStack::Measure() {
    if (Children.empty())
        return;
    const Extent extent = MeasureAll(Children);
    const LONG gaps = VerticalGap * (static_cast<LONG>(Children.size()) - 1);
    MinimumRect = CurrentRect =
        WithMargins(extent.origin, {extent.largest.cx, extent.sum.cy + gaps}, Margins);
}

}  // namespace WinLib::Layout
