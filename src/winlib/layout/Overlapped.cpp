#include "winlib/layout/Overlapped.h"

#include <algorithm>

#include "winlib/layout/Stack.h"
#include "winlib/layout/Window.h"

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

template <typename Child>
Child* Overlapped::Add(std::unique_ptr<Child> child) {
    Child* const added = child.get();
    Children.push_back(std::move(child));
    return added;
}

HStack* Overlapped::AddHStack(const Margins& margins, int gap) {
    return Add(std::make_unique<HStack>(margins, gap));
}

VStack* Overlapped::AddVStack(const Margins& margins, int gap) {
    return Add(std::make_unique<VStack>(margins, gap));
}

Window* Overlapped::AddWindow(HWND window, Alignment, Alignment vertical) {
    return Add(std::make_unique<Window>(window, Alignment::Fill, vertical));
}

}  // namespace WinLib::Layout
