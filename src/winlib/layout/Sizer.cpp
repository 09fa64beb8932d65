#include "winlib/layout/Sizer.h"

#include <algorithm>

namespace WinLib::Layout {

void Sizer::Arrange(const RECT& rect) {
    CurrentRect = rect;
    CurrentRect.right = std::max(rect.right, rect.left + Width(MinimumRect));
    CurrentRect.bottom = std::max(rect.bottom, rect.top + Height(MinimumRect));
}

}  // namespace WinLib::Layout
