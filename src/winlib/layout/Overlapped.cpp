#include "winlib/layout/Overlapped.h"

#include <algorithm>

namespace WinLib::Layout {

void Overlapped::Arrange(const RECT& rect) {
    Sizer::Arrange(rect);
    for (const auto& child : Children)
        child->Arrange(CurrentRect);
}

void Overlapped::Measure() {
    if (Children.empty())
        return;
    for (const auto& child : Children)
        child->Measure();
    RECT united = Children.front()->MinimumRect;
    for (const auto& child : Children) {
        const RECT& rect = child->MinimumRect;
        united = {std::min(united.left, rect.left), std::min(united.top, rect.top),
                  std::max(united.right, rect.right), std::max(united.bottom, rect.bottom)};
    }
    MinimumRect = CurrentRect = united;
}

}  // namespace WinLib::Layout
