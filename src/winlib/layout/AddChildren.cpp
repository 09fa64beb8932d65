// The operations of Stack and Overlapped that make their children. They are in a file of their own because
// either class can contain the other.
#include <utility>

#include "winlib/layout/Overlapped.h"
#include "winlib/layout/Spacer.h"
#include "winlib/layout/Stack.h"
#include "winlib/layout/Window.h"

namespace WinLib::Layout {

template <typename Child>
Child* Stack::Add(int stretch, std::unique_ptr<Child> child) {
    Child* const added = child.get();
    Children.push_back(std::move(child));
    Stretch.push_back(stretch);
    TotalStretch += stretch;
    return added;
}

HStack* Stack::AddHStack(int stretch, const Layout::Margins& margins, int gap) {
    const Layout::Margins used = {.left = margins.left, .right = margins.right};
    return Add(stretch, std::make_unique<HStack>(used, gap));
}

VStack* Stack::AddVStack(int stretch, const Layout::Margins& margins, int gap) {
    const Layout::Margins used = {.left = margins.left, .top = margins.top, .right = margins.right};
    return Add(stretch, std::make_unique<VStack>(used, gap));
}

Overlapped* Stack::AddOverlapped(int stretch) {
    return Add(stretch, std::make_unique<Overlapped>());
}

Window* Stack::AddWindow(int stretch, HWND window, Alignment horizontal, Alignment vertical) {
    return Add(stretch, std::make_unique<Window>(window, horizontal, vertical));
}

Sizer* HStack::AddSpacer(int stretch, int size) {
    return Add(stretch, std::make_unique<HSpacer>(size));
}

Sizer* VStack::AddSpacer(int stretch, int size) {
    return Add(stretch, std::make_unique<VSpacer>(size));
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
