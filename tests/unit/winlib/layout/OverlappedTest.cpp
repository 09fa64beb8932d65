#include <gtest/gtest.h>

#include "layout/FixedSizer.h"
#include "winlib/layout/Window.h"

using WinLib::Layout::Alignment;
using WinLib::Layout::Overlapped;

namespace {

TEST(Sizer, GrowsToTheRightAndDownwardUpToItsMinimum) {
    struct {
        RECT asked;
        RECT expected;
    } const rows[] = {
        {{0, 0, 100, 100}, {0, 0, 100, 100}}, {{7, 9, 17, 29}, {7, 9, 17, 29}},
        {{7, 9, 16, 100}, {7, 9, 17, 100}},   {{7, 9, 100, 28}, {7, 9, 100, 29}},
        {{7, 9, 7, 9}, {7, 9, 17, 29}},       {{-30, -40, -35, -45}, {-30, -40, -20, -20}},
    };
    for (const auto& row : rows) {
        FixedSizer sizer({100, 200, 110, 220});
        sizer.Arrange(row.asked);
        EXPECT_EQ(sizer.CurrentRect, row.expected) << "asked for " << row.asked;
        EXPECT_EQ(sizer.MinimumRect, (RECT{100, 200, 110, 220}));
    }
}

TEST(Sizer, IsEmptyAtFirst) {
    const Overlapped root;
    EXPECT_EQ(root.MinimumRect, (RECT{0, 0, 0, 0}));
    EXPECT_EQ(root.CurrentRect, (RECT{0, 0, 0, 0}));
}

TEST(Overlapped, MeasuresTheUnionOfItsChildren) {
    Overlapped root;
    const FixedSizer* const one = AddFixed(root, {10, 60, 20, 70});
    const FixedSizer* const two = AddFixed(root, {40, 30, 50, 50});
    root.Measure();
    EXPECT_EQ(root.MinimumRect, (RECT{10, 30, 50, 70}));
    EXPECT_EQ(root.CurrentRect, (RECT{10, 30, 50, 70}));
    EXPECT_EQ(one->Measured, 1);
    EXPECT_EQ(two->Measured, 1);
}

TEST(Overlapped, WithoutChildrenKeepsItsRectangles) {
    Overlapped root;
    root.MinimumRect = {1, 2, 3, 4};
    root.Measure();
    EXPECT_EQ(root.MinimumRect, (RECT{1, 2, 3, 4}));
}

TEST(Overlapped, ArrangesEachChildOnTheWholeRectangle) {
    Overlapped root;
    const FixedSizer* const one = AddFixed(root, {10, 60, 20, 70});
    const FixedSizer* const two = AddFixed(root, {40, 30, 50, 50});
    root.Measure();
    root.Arrange({0, 0, 200, 5});
    EXPECT_EQ(root.CurrentRect, (RECT{0, 0, 200, 40}));
    EXPECT_EQ(one->CurrentRect, (RECT{0, 0, 200, 40}));
    EXPECT_EQ(two->CurrentRect, (RECT{0, 0, 200, 40}));
}

TEST(Overlapped, AWindowAlwaysFillsTheWidth) {
    Overlapped root;
    const WinLib::Layout::Window* const window = root.AddWindow(nullptr, Alignment::Near, Alignment::Center);
    EXPECT_EQ(window->Horizontal, Alignment::Fill);
    EXPECT_EQ(window->Vertical, Alignment::Center);
    EXPECT_EQ(root.Children.size(), 1U);
}

TEST(Alignment, HasFixedNumbers) {
    EXPECT_EQ(static_cast<uint32_t>(Alignment::Near), 0U);
    EXPECT_EQ(static_cast<uint32_t>(Alignment::Center), 1U);
    EXPECT_EQ(static_cast<uint32_t>(Alignment::Far), 2U);
    EXPECT_EQ(static_cast<uint32_t>(Alignment::Fill), 3U);
}

}  // namespace
