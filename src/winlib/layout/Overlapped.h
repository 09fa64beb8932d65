// Children that all have the same rectangle: the root of every tree, and windows of which one is visible at a
// time.
#pragma once

#include <memory>
#include <vector>

#include "winlib/layout/Sizer.h"

namespace WinLib::Layout {

class HStack;
class VStack;
class Window;

class Overlapped : public Sizer {
public:
    void Arrange(const RECT& rect) override;
    void Measure() override;

    // Append a child and return it; this object owns it. A window always fills the width: its second argument
    // has no effect.
    HStack* AddHStack(const Margins& margins, int gap);
    VStack* AddVStack(const Margins& margins, int gap);
    Window* AddWindow(HWND window, Alignment ignored, Alignment vertical);

    std::vector<std::unique_ptr<Sizer>> Children;

private:
    template <typename Child>
    Child* Add(std::unique_ptr<Child> child);
};

}  // namespace WinLib::Layout
