#include <gtest/gtest.h>

#include "layout/FixedSizer.h"
#include "winlib/layout/Spacer.h"
#include "winlib/layout/Window.h"

using WinLib::Layout::HStack;
using WinLib::Layout::Overlapped;
using WinLib::Layout::Sizer;
using WinLib::Layout::VStack;

namespace {

TEST(StackMeasure, AnEmptyStackKeepsOnlyItsMargins) {
    HStack row({1, 2, 4, 8}, 99);
    EXPECT_EQ(row.MinimumRect, (RECT{0, 0, 5, 10}));
    EXPECT_EQ(row.CurrentRect, (RECT{0, 0, 5, 10}));
    row.Measure();
    EXPECT_EQ(row.MinimumRect, (RECT{0, 0, 5, 10}));

    VStack column({1, 2, 4, 8}, 99);
    column.Measure();
    EXPECT_EQ(column.MinimumRect, (RECT{0, 0, 5, 10}));
    EXPECT_EQ(column.CurrentRect, (RECT{0, 0, 5, 10}));
}

TEST(StackMeasure, ANewStackHasNoStretch) {
    HStack row({}, 0);
    EXPECT_EQ(row.TotalStretch, 0);
    EXPECT_TRUE(row.Stretch.empty());
    EXPECT_TRUE(row.Children.empty());
}

// Children that lie apart: the smallest left is the second's, the smallest top the first's.
const RECT First = {50, 20, 60, 25};    // 10 by 5
const RECT Second = {30, 40, 50, 70};   // 20 by 30
const RECT Third = {80, 90, 120, 100};  // 40 by 10

TEST(StackMeasure, ARowAddsWidthsAndGapsAndTakesTheLargestHeight) {
    HStack row({1, 2, 4, 8}, 16);
    for (const RECT& rect : {First, Second, Third})
        AddFixed(row, 0, rect);
    row.Measure();
    EXPECT_EQ(row.MinimumRect, (RECT{30 - 1, 20 - 2, 30 + 10 + 20 + 40 + 2 * 16 + 4, 20 + 30 + 8}));
    EXPECT_EQ(row.CurrentRect, row.MinimumRect);
}

TEST(StackMeasure, AColumnAddsHeightsAndGapsAndTakesTheLargestWidth) {
    VStack column({1, 2, 4, 8}, 16);
    for (const RECT& rect : {First, Second, Third})
        AddFixed(column, 0, rect);
    column.Measure();
    EXPECT_EQ(column.MinimumRect, (RECT{30 - 1, 20 - 2, 30 + 40 + 4, 20 + 5 + 30 + 10 + 2 * 16 + 8}));
    EXPECT_EQ(column.CurrentRect, column.MinimumRect);
}

TEST(StackMeasure, OneChildHasNoGap) {
    HStack row({}, 16);
    AddFixed(row, 0, First);
    row.Measure();
    EXPECT_EQ(row.MinimumRect, First);

    VStack column({}, 16);
    AddFixed(column, 0, First);
    column.Measure();
    EXPECT_EQ(column.MinimumRect, First);
}

TEST(StackMeasure, MeasuresEachChildOnce) {
    HStack row({}, 0);
    const FixedSizer* const one = AddFixed(row, 0, First);
    const FixedSizer* const two = AddFixed(row, 0, Second);
    row.Measure();
    EXPECT_EQ(one->Measured, 1);
    EXPECT_EQ(two->Measured, 1);
}

TEST(StackMeasure, ASpacerTakesPartFromTheOrigin) {
    HStack row({1, 2, 4, 8}, 0);
    row.AddSpacer(1, 25);
    AddFixed(row, 0, First);
    row.Measure();
    EXPECT_EQ(row.MinimumRect, (RECT{-1, -2, 25 + 10 + 4, 5 + 8}));

    VStack column({1, 2, 4, 8}, 0);
    column.AddSpacer(1, 25);
    AddFixed(column, 0, First);
    column.Measure();
    EXPECT_EQ(column.MinimumRect, (RECT{-1, -2, 10 + 4, 25 + 5 + 8}));
}

TEST(Spacer, IsEmptyAcross) {
    HStack row({}, 0);
    const Sizer* const horizontal = row.AddSpacer(0, 25);
    EXPECT_EQ(horizontal->MinimumRect, (RECT{0, 0, 25, 0}));
    EXPECT_EQ(horizontal->CurrentRect, (RECT{0, 0, 25, 0}));
    EXPECT_NE(dynamic_cast<const WinLib::Layout::HSpacer*>(horizontal), nullptr);

    VStack column({}, 0);
    const Sizer* const vertical = column.AddSpacer(0, 25);
    EXPECT_EQ(vertical->MinimumRect, (RECT{0, 0, 0, 25}));
    EXPECT_EQ(vertical->CurrentRect, (RECT{0, 0, 0, 25}));
    EXPECT_NE(dynamic_cast<const WinLib::Layout::VSpacer*>(vertical), nullptr);
}

TEST(Stack, BuildersAppendTheChildWithItsStretch) {
    HStack stack({}, 0);
    const Sizer* const children[] = {
        stack.AddHStack(1, {}, 0),
        stack.AddVStack(2, {}, 0),
        stack.AddOverlapped(4),
        stack.AddWindow(8, nullptr, WinLib::Layout::Alignment::Fill, WinLib::Layout::Alignment::Fill),
        stack.AddSpacer(16, 0),
    };
    ASSERT_EQ(stack.Children.size(), std::size(children));
    for (size_t i = 0; i < std::size(children); ++i)
        EXPECT_EQ(stack.Children[i].get(), children[i]) << i;
    EXPECT_EQ(stack.Stretch, (std::vector<int>{1, 2, 4, 8, 16}));
    EXPECT_EQ(stack.TotalStretch, 31);
}

TEST(Stack, ANestedRowHasNoTopAndBottomMargins) {
    VStack outer({}, 0);
    const HStack* const row = outer.AddHStack(0, {1, 2, 4, 8}, 16);
    EXPECT_EQ(row->Margins, (RECT{1, 0, 4, 0}));
    EXPECT_EQ(row->HorizontalGap, 16);
    EXPECT_EQ(row->MinimumRect, (RECT{0, 0, 5, 0}));
}

TEST(Stack, ANestedColumnHasNoBottomMargin) {
    HStack outer({}, 0);
    const VStack* const column = outer.AddVStack(0, {1, 2, 4, 8}, 16);
    EXPECT_EQ(column->Margins, (RECT{1, 2, 4, 0}));
    EXPECT_EQ(column->VerticalGap, 16);
    EXPECT_EQ(column->MinimumRect, (RECT{0, 0, 5, 2}));
}

TEST(Stack, StacksOfAnOverlappedHaveAllMargins) {
    Overlapped root;
    const HStack* const row = root.AddHStack({1, 2, 4, 8}, 16);
    EXPECT_EQ(row->Margins, (RECT{1, 2, 4, 8}));
    EXPECT_EQ(row->HorizontalGap, 16);
    const VStack* const column = root.AddVStack({1, 2, 4, 8}, 16);
    EXPECT_EQ(column->Margins, (RECT{1, 2, 4, 8}));
    EXPECT_EQ(column->VerticalGap, 16);
}

}  // namespace
