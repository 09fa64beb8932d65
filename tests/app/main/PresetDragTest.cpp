// The drag of an item in a tree, without the controller of the tree.

#include "app/PresetDrag.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "BareDialog.h"

namespace {

using Names = std::vector<std::wstring>;

class PresetDragTest : public testing::Test {
protected:
    PresetDragTest() {
        drag.Attach(view);
        for (const wchar_t* const name : {L"A", L"B", L"C"})
            view.Insert(TVI_ROOT, name, 0);
        from = tree.Middle(Item(L"A"));
    }

    HTREEITEM Item(const wchar_t* name) const { return tree.Item(name); }

    void PressA() { drag.Press(Item(L"A"), from.x, from.y); }

    // Moves the mouse this far below the place where it was pressed.
    bool MoveBy(int pixels, WPARAM keys = MK_LBUTTON) { return drag.Move(from.x, from.y + pixels, keys); }

    void DragA() {
        PressA();
        ASSERT_TRUE(MoveBy(threshold));
    }

    static bool HasImage() { return ImageList_GetDragImage(nullptr, nullptr) != nullptr; }

    BareDialog dialog;
    WinLib::Controls::Tree view{dialog.Control(IDC_MAIN_TREE)};
    TreeReader tree{view};
    PresetDrag drag;
    POINT from = {};
    const int threshold = GetSystemMetrics(SM_CYDRAG);
};

TEST_F(PresetDragTest, AMoveWithoutAPressIsNoDrag) {
    EXPECT_FALSE(MoveBy(threshold));
    EXPECT_EQ(drag.Release(), nullptr);
}

TEST_F(PresetDragTest, APressBecomesADragAtTheThreshold) {
    PressA();
    EXPECT_EQ(GetCapture(), view);
    EXPECT_FALSE(MoveBy(threshold - 1));
    EXPECT_FALSE(HasImage());
    EXPECT_TRUE(MoveBy(threshold));
    EXPECT_TRUE(HasImage());
    EXPECT_EQ(drag.Release(), Item(L"A"));
    EXPECT_FALSE(HasImage());
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(PresetDragTest, AMoveWithoutTheButtonEndsAPress) {
    PressA();
    EXPECT_FALSE(MoveBy(0, 0));
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_FALSE(MoveBy(threshold));
}

TEST_F(PresetDragTest, APressDuringADragIsIgnored) {
    DragA();
    drag.Press(Item(L"B"), from.x, from.y);
    EXPECT_EQ(drag.Release(), Item(L"A"));
}

TEST_F(PresetDragTest, EndOfConcernsTheDraggedItemAlone) {
    DragA();
    drag.EndOf(Item(L"B"));
    drag.EndOf(nullptr);
    EXPECT_TRUE(HasImage());
    drag.EndOf(Item(L"A"));
    EXPECT_FALSE(HasImage());
    EXPECT_EQ(drag.Release(), nullptr);
}

TEST_F(PresetDragTest, ALostMouseEndsADragButNotAPress) {
    PressA();
    drag.CaptureLost();
    EXPECT_TRUE(MoveBy(threshold));
    drag.CaptureLost();
    EXPECT_FALSE(HasImage());
    EXPECT_EQ(drag.Release(), nullptr);
}

TEST_F(PresetDragTest, DestructionEndsADrag) {
    {
        PresetDrag other;
        other.Attach(view);
        other.Press(Item(L"A"), from.x, from.y);
        ASSERT_TRUE(other.Move(from.x, from.y + threshold, MK_LBUTTON));
        EXPECT_TRUE(HasImage());
    }
    EXPECT_FALSE(HasImage());
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(PresetDragTest, ADropPutsTheContentsBelowTheTarget) {
    drag.Drop(Item(L"A"), Item(L"C"));
    EXPECT_EQ(tree.Names(), (Names{L"B", L"C", L"A"}));
    drag.Drop(Item(L"A"), Item(L"B"));
    EXPECT_EQ(tree.Names(), (Names{L"B", L"A", L"C"}));
}

}  // namespace
