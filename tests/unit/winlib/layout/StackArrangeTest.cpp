#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "layout/FixedSizer.h"

using WinLib::Layout::HStack;
using WinLib::Layout::VStack;

namespace {

// One arranging along a stack's direction, that of an HStack and, turned by a right angle, of a VStack.
struct Row {
    const char* what;
    std::vector<int> stretches;
    std::vector<int> minimums;
    int before;  // the margins at both ends
    int after;
    int gap;
    int total;                               // what the parent gives
    int end;                                 // where the stack then ends
    std::vector<std::pair<int, int>> cells;  // begin and end of each
};

// The stack is arranged from here on.
constexpr int Begin = 100;

const Row Rows[] = {
    {"no extra room", {1, 1}, {10, 20}, 0, 0, 0, 30, 130, {{100, 110}, {110, 130}}},
    {"1 and 3 share 100 as 25 and 75", {1, 3}, {10, 20}, 0, 0, 0, 130, 230, {{100, 135}, {135, 230}}},
    {"1 and 1 share 5, 1 stays free", {1, 1}, {10, 20}, 0, 0, 0, 35, 135, {{100, 112}, {112, 134}}},
    {"thirds of 100, 1 stays free",
     {1, 1, 1},
     {0, 0, 0},
     0,
     0,
     0,
     100,
     200,
     {{100, 133}, {133, 166}, {166, 199}}},
    {"0 beside 1 keeps its minimum", {0, 1}, {10, 20}, 0, 0, 0, 50, 150, {{100, 110}, {110, 150}}},
    {"1 beside 0 takes all", {1, 0}, {10, 20}, 0, 0, 0, 50, 150, {{100, 130}, {130, 150}}},
    {"no stretch: the room is free at the end", {0, 0}, {10, 20}, 0, 0, 0, 50, 150, {{100, 110}, {110, 130}}},
    {"too little room: all at the minimum", {1, 1}, {10, 20}, 0, 0, 0, 5, 130, {{100, 110}, {110, 130}}},
    {"no room at all", {1, 1}, {10, 20}, 5, 7, 6, 0, 148, {{105, 115}, {121, 141}}},
    {"a negative size", {1}, {10}, 0, 0, 0, -20, 110, {{100, 110}}},
    {"margins and gap", {1, 1}, {10, 20}, 5, 7, 6, 58, 158, {{105, 120}, {126, 151}}},
    {"a gap between each two", {0, 0, 0}, {1, 2, 3}, 0, 0, 8, 22, 122, {{100, 101}, {109, 111}, {119, 122}}},
    {"one child has no gap", {1}, {10}, 1, 2, 8, 23, 123, {{101, 121}}},
    // 7 of 12 is a little less than 7/12 in single precision; multiplied first it would be 63.
    {"divides first", {7, 5}, {0, 0}, 0, 0, 0, 108, 208, {{100, 162}, {162, 207}}},
    // 3 of 11 is a little more than 3/11 in single precision, and a little less in double: 14.
    {"single precision", {3, 8}, {0, 0}, 0, 0, 0, 55, 155, {{100, 115}, {115, 155}}},
};

class StackArrange : public testing::TestWithParam<Row> {};

template <typename Stack, typename MakeRect>
void Check(Stack& stack, const Row& row, const MakeRect& makeRect) {
    std::vector<FixedSizer*> children;
    for (size_t i = 0; i < row.minimums.size(); ++i)
        children.push_back(AddFixed(stack, row.stretches[i], makeRect(0, row.minimums[i], 0, 10)));
    stack.Measure();

    // Across, the stack lies from 500 to 550 and has margins of 3 and 4.
    stack.Arrange(makeRect(Begin, Begin + row.total, 500, 550));

    EXPECT_EQ(stack.CurrentRect, makeRect(Begin, row.end, 500, 550));
    ASSERT_EQ(children.size(), row.cells.size());
    for (size_t i = 0; i < children.size(); ++i) {
        const auto [begin, end] = row.cells[i];
        EXPECT_EQ(children[i]->CurrentRect, makeRect(begin, end, 503, 546)) << "cell " << i;
    }
}

TEST_P(StackArrange, RowAsExpected) {
    const Row& row = GetParam();
    SCOPED_TRACE(row.what);
    HStack stack({row.before, 3, row.after, 4}, row.gap);
    Check(stack, row, [](int begin, int end, int acrossBegin, int acrossEnd) {
        return RECT{begin, acrossBegin, end, acrossEnd};
    });
}

TEST_P(StackArrange, ColumnAsExpected) {
    const Row& row = GetParam();
    SCOPED_TRACE(row.what);
    VStack stack({3, row.before, 4, row.after}, row.gap);
    Check(stack, row, [](int begin, int end, int acrossBegin, int acrossEnd) {
        return RECT{acrossBegin, begin, acrossEnd, end};
    });
}

INSTANTIATE_TEST_SUITE_P(Rows, StackArrange, testing::ValuesIn(Rows));

TEST(StackArrangeAcross, IsClampedToTheMinimumToo) {
    HStack row({1, 2, 3, 4}, 0);
    FixedSizer* const child = AddFixed(row, 0, {0, 0, 10, 20});
    row.Measure();
    row.Arrange({0, 0, 14, 5});
    EXPECT_EQ(row.CurrentRect, (RECT{0, 0, 14, 26}));
    EXPECT_EQ(child->CurrentRect, (RECT{1, 2, 11, 22}));

    VStack column({1, 2, 3, 4}, 0);
    FixedSizer* const other = AddFixed(column, 0, {0, 0, 10, 20});
    column.Measure();
    column.Arrange({0, 0, 5, 26});
    EXPECT_EQ(column.CurrentRect, (RECT{0, 0, 14, 26}));
    EXPECT_EQ(other->CurrentRect, (RECT{1, 2, 11, 22}));
}

TEST(StackArrangeAcross, NeverChangesTheMinimum) {
    HStack row({}, 0);
    AddFixed(row, 1, {7, 8, 17, 28});
    row.Measure();
    row.Arrange({0, 0, 100, 100});
    row.Arrange({0, 0, 3, 3});
    EXPECT_EQ(row.MinimumRect, (RECT{7, 8, 17, 28}));
    EXPECT_EQ(row.CurrentRect, (RECT{0, 0, 10, 20}));
}

// A total that lags behind the stretch of its child would give the child three times the room.
TEST(StackArrangeAcross, AShareIsNoLargerThanTheExtraRoom) {
    HStack row({}, 0);
    FixedSizer* const child = AddFixed(row, 3, {0, 0, 10, 10});
    row.TotalStretch = 1;
    row.Measure();
    row.Arrange({0, 0, 30, 10});
    EXPECT_EQ(child->CurrentRect, (RECT{0, 0, 30, 10}));
}

}  // namespace
