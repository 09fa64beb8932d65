// Children in a row or a column, with margins around and gaps between them. Each child has a stretch value:
// its share of the space beyond the minimum.
#pragma once

#include <memory>
#include <vector>

#include "winlib/layout/Sizer.h"

namespace WinLib::Layout {

class HStack;
class VStack;
class Overlapped;
class Window;

class Stack : public Sizer {
public:
    Stack(const Layout::Margins& margins, int horizontalGap, int verticalGap);

    // Append a child and return it; the stack owns it. A nested HStack has no top and bottom margins and a
    // nested VStack no bottom margin, whatever is passed.
    HStack* AddHStack(int stretch, const Layout::Margins& margins, int gap);
    VStack* AddVStack(int stretch, const Layout::Margins& margins, int gap);
    Overlapped* AddOverlapped(int stretch);
    Window* AddWindow(int stretch, HWND window, Alignment horizontal, Alignment vertical);

    // Appends empty space of this size along the stack's direction.
    virtual Sizer* AddSpacer(int stretch, int size) = 0;

    RECT Margins;
    int HorizontalGap;
    int VerticalGap;
    int TotalStretch = 0;
    std::vector<int> Stretch;
    std::vector<std::unique_ptr<Sizer>> Children;

protected:
    // Appends a child with its stretch value.
    template <typename Child>
    Child* Add(int stretch, std::unique_ptr<Child> child);

    // Returns the pixels of the extra space for child i. What truncation loses stays unused at the end.
    int Share(size_t i, int extra) const;
};

class HStack : public Stack {
public:
    HStack(const Layout::Margins& margins, int gap) : Stack(margins, gap, 0) {}
    void Arrange(const RECT& rect) override;
    void Measure() override;
    Sizer* AddSpacer(int stretch, int size) override;
};

class VStack : public Stack {
public:
    VStack(const Layout::Margins& margins, int gap) : Stack(margins, 0, gap) {}
    void Arrange(const RECT& rect) override;
    void Measure() override;
    Sizer* AddSpacer(int stretch, int size) override;
};

}  // namespace WinLib::Layout
