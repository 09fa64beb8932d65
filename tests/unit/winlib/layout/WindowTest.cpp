#include "winlib/layout/Window.h"

#include <gtest/gtest.h>

#include "TestWindows.h"
#include "layout/FixedSizer.h"

using TestWindows::PlaceOf;
using WinLib::Layout::Alignment;

namespace {

class LayoutWindow : public testing::Test {
protected:
    LayoutWindow() : parent_(TestWindows::MakeWindow()) {}
    ~LayoutWindow() override { DestroyWindow(parent_); }

    // A child of 30 by 20.
    HWND MakeChild() const { return TestWindows::MakeChild(parent_, {40, 50, 70, 70}); }

    HWND parent_;
};

TEST_F(LayoutWindow, TakesItsPresentPlaceAsMinimum) {
    const HWND child = MakeChild();
    WinLib::Layout::Window sizer(child, Alignment::Fill, Alignment::Fill);
    EXPECT_EQ(sizer.Handle, child);
    EXPECT_EQ(sizer.MinimumRect, (RECT{40, 50, 70, 70}));
    EXPECT_EQ(sizer.CurrentRect, (RECT{40, 50, 70, 70}));

    MoveWindow(child, 1, 2, 10, 20, FALSE);
    EXPECT_EQ(sizer.MinimumRect, (RECT{40, 50, 70, 70}));
    sizer.Measure();
    EXPECT_EQ(sizer.MinimumRect, (RECT{1, 2, 11, 22}));
    EXPECT_EQ(sizer.CurrentRect, (RECT{1, 2, 11, 22}));
}

TEST_F(LayoutWindow, LiesInTheClientAreaOfItsParentWhereverThatIs) {
    const HWND child = MakeChild();
    MoveWindow(parent_, 33, 44, 640, 480, FALSE);
    const WinLib::Layout::Window sizer(child, Alignment::Fill, Alignment::Fill);
    EXPECT_EQ(sizer.MinimumRect, (RECT{40, 50, 70, 70}));
}

// A window that is no child lies on the desktop, even if another window owns it.
TEST_F(LayoutWindow, OfATopLevelWindowLiesOnTheDesktop) {
    MoveWindow(parent_, 33, 44, 200, 100, FALSE);
    const WinLib::Layout::Window sizer(parent_, Alignment::Fill, Alignment::Fill);
    EXPECT_EQ(sizer.MinimumRect, (RECT{33, 44, 233, 144}));
}

TEST_F(LayoutWindow, LiesInItsCellAsAligned) {
    struct {
        Alignment alignment;
        LONG left;
        LONG right;
        LONG top;
        LONG bottom;
    } const rows[] = {
        // In a cell from 100, 200 to 201, 261, of 101 by 61 pixels.
        {Alignment::Near, 100, 130, 200, 220},
        {Alignment::Center, 135, 165, 220, 240},
        {Alignment::Far, 171, 201, 241, 261},
        {Alignment::Fill, 100, 201, 200, 261},
    };
    for (const auto& horizontal : rows) {
        for (const auto& vertical : rows) {
            const HWND child = MakeChild();
            WinLib::Layout::Window sizer(child, horizontal.alignment, vertical.alignment);
            sizer.Arrange({100, 200, 201, 261});
            EXPECT_EQ(PlaceOf(child),
                      (RECT{horizontal.left, vertical.top, horizontal.right, vertical.bottom}))
                << static_cast<uint32_t>(horizontal.alignment) << " and "
                << static_cast<uint32_t>(vertical.alignment);
            EXPECT_EQ(sizer.CurrentRect, (RECT{100, 200, 201, 261}));
        }
    }
}

// The window has grown since it was measured, so that its cell is smaller than itself: by 5 and 9 pixels, of
// which the half toward zero hangs over on the near side.
TEST_F(LayoutWindow, CenteredOverhangsASmallerCellOnBothSides) {
    const HWND child = MakeChild();
    WinLib::Layout::Window sizer(child, Alignment::Center, Alignment::Center);
    MoveWindow(child, 0, 0, 35, 29, FALSE);
    sizer.Arrange({100, 200, 130, 220});
    EXPECT_EQ(PlaceOf(child), (RECT{98, 196, 133, 225}));
}

TEST_F(LayoutWindow, IsNeverArrangedBelowItsMinimum) {
    const HWND child = MakeChild();
    WinLib::Layout::Window sizer(child, Alignment::Fill, Alignment::Fill);
    sizer.Arrange({100, 200, 105, 205});
    EXPECT_EQ(PlaceOf(child), (RECT{100, 200, 130, 220}));
    EXPECT_EQ(sizer.CurrentRect, (RECT{100, 200, 130, 220}));
}

// What does not fill keeps the size of the last move, not the measured one.
TEST_F(LayoutWindow, KeepsItsActualSizeWhereItDoesNotFill) {
    const HWND child = MakeChild();
    WinLib::Layout::Window sizer(child, Alignment::Far, Alignment::Near);
    MoveWindow(child, 0, 0, 10, 8, FALSE);
    sizer.Arrange({100, 200, 200, 300});
    EXPECT_EQ(PlaceOf(child), (RECT{190, 200, 200, 208}));
}

TEST_F(LayoutWindow, IsNotMovedToThePlaceWhereItLies) {
    for (const Alignment alignment : {Alignment::Near, Alignment::Center, Alignment::Far, Alignment::Fill}) {
        const HWND child = MakeChild();
        WinLib::Layout::Window sizer(child, alignment, alignment);
        const int before = TestWindows::Moves(child);
        sizer.Arrange({100, 200, 201, 261});
        EXPECT_EQ(TestWindows::Moves(child), before + 1) << static_cast<uint32_t>(alignment);
        sizer.Arrange({100, 200, 201, 261});
        EXPECT_EQ(TestWindows::Moves(child), before + 1) << static_cast<uint32_t>(alignment);
    }
}

TEST_F(LayoutWindow, OfADestroyedWindowStaysWithoutEffect) {
    const HWND child = MakeChild();
    WinLib::Layout::Window sizer(child, Alignment::Fill, Alignment::Fill);
    DestroyWindow(child);
    sizer.Arrange({100, 200, 201, 261});
    EXPECT_EQ(sizer.CurrentRect, (RECT{100, 200, 201, 261}));
    sizer.Measure();
    EXPECT_EQ(sizer.MinimumRect, (RECT{0, 0, 0, 0}));
}

}  // namespace
