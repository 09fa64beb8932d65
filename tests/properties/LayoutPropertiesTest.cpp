#include <gtest/gtest.h>

#include "support/Random.h"
#include "unit/winlib/layout/FixedSizer.h"
#include "winlib/layout/Spacer.h"

using namespace WinLib::Layout;

namespace {

int Stretch(Random& random) {
    return random.Between(0, 4);
}

// A control as a dialog draws it, anywhere.
RECT Control(Random& random) {
    const int left = random.Between(0, 500);
    const int top = random.Between(0, 400);
    return {left, top, left + random.Between(0, 200), top + random.Between(0, 100)};
}

void Fill(Random& random, Stack& stack, int levels);

void Fill(Random& random, Overlapped& overlapped, int levels) {
    const auto margin = [&] { return random.Between(0, 12); };
    for (uint32_t count = random.Below(4); count > 0; --count) {
        const uint32_t kind = levels == 0 ? 0 : random.Below(3);
        if (kind == 0)
            AddFixed(overlapped, Control(random));
        else if (kind == 1)
            Fill(random, *overlapped.AddHStack({margin(), margin(), margin(), margin()}, margin()),
                 levels - 1);
        else
            Fill(random, *overlapped.AddVStack({margin(), margin(), margin(), margin()}, margin()),
                 levels - 1);
    }
}

void Fill(Random& random, Stack& stack, int levels) {
    const auto margin = [&] { return random.Between(0, 12); };
    for (uint32_t count = random.Below(5); count > 0; --count) {
        const int stretch = Stretch(random);
        switch (levels == 0 ? random.Below(2) : random.Below(5)) {
            case 0:
                AddFixed(stack, stretch, Control(random));
                break;
            case 1:
                stack.AddSpacer(stretch, random.Between(0, 50));
                break;
            case 2:
                Fill(random, *stack.AddHStack(stretch, {margin(), margin(), margin(), margin()}, margin()),
                     levels - 1);
                break;
            case 3:
                Fill(random, *stack.AddVStack(stretch, {margin(), margin(), margin(), margin()}, margin()),
                     levels - 1);
                break;
            default:
                Fill(random, *stack.AddOverlapped(stretch), levels - 1);
        }
    }
}

bool Contains(const RECT& outer, const RECT& inner) {
    return outer.left <= inner.left && outer.top <= inner.top && inner.right <= outer.right &&
           inner.bottom <= outer.bottom;
}

void ExpectInOrder(const Sizer& sizer);

// The cells of a stack lie in it, one after the other.
void ExpectCells(const Stack& stack, bool isRow) {
    for (size_t i = 0; i < stack.Children.size(); ++i) {
        const RECT& cell = stack.Children[i]->CurrentRect;
        EXPECT_TRUE(Contains(stack.CurrentRect, cell)) << cell << " in " << stack.CurrentRect;
        ExpectInOrder(*stack.Children[i]);
        if (i == 0)
            continue;
        const RECT& previous = stack.Children[i - 1]->CurrentRect;
        if (isRow)
            EXPECT_EQ(cell.left, previous.right + stack.HorizontalGap);
        else
            EXPECT_EQ(cell.top, previous.bottom + stack.VerticalGap);
    }
}

void ExpectInOrder(const Sizer& sizer) {
    EXPECT_GE(Width(sizer.CurrentRect), Width(sizer.MinimumRect));
    EXPECT_GE(Height(sizer.CurrentRect), Height(sizer.MinimumRect));
    if (const auto* const row = dynamic_cast<const HStack*>(&sizer)) {
        ExpectCells(*row, true);
    } else if (const auto* const column = dynamic_cast<const VStack*>(&sizer)) {
        ExpectCells(*column, false);
    } else if (const auto* const overlapped = dynamic_cast<const Overlapped*>(&sizer)) {
        for (const auto& child : overlapped->Children) {
            EXPECT_EQ(child->CurrentRect, overlapped->CurrentRect);
            ExpectInOrder(*child);
        }
    }
}

// From nothing to a large screen, and beyond both.
RECT Room(Random& random) {
    const int left = random.Between(-50, 50);
    const int top = random.Between(-50, 50);
    return {left, top, left + random.Between(-100, 4000), top + random.Between(-100, 3000)};
}

TEST(LayoutProperties, CellsNeverOverlapNorFallBelowTheirMinimum) {
    ForRandomInputs(
        500,
        [](Random& random) {
            Overlapped root;
            Fill(random, root, 4);
            root.Measure();
            for (int size = 0; size < 5; ++size) {
                const RECT room = Room(random);
                root.Arrange(room);
                EXPECT_EQ(root.CurrentRect.left, room.left);
                EXPECT_EQ(root.CurrentRect.top, room.top);
                ExpectInOrder(root);
            }
        });
}

TEST(LayoutProperties, TheMinimumFitsExactlyAndTheLastArrangingAloneCounts) {
    ForRandomInputs(
        200,
        [](Random& random) {
            Overlapped root;
            Fill(random, root, 4);
            root.Measure();
            const RECT minimum = root.MinimumRect;
            root.Arrange(Room(random));
            EXPECT_EQ(root.MinimumRect, minimum);
            root.Arrange(minimum);
            EXPECT_EQ(root.CurrentRect, minimum);
            ExpectInOrder(root);
        });
}

}  // namespace
