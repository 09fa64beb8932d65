// The right button on the tree.

#include "support/ui/MainWindowTest.h"

namespace {

using Names = std::vector<std::wstring>;

class ContextMenuTest : public MainWindowTest {
protected:
    void Press(POINT point) const {
        SendMessageW(tree.Window(), WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(point.x, point.y));
    }

    // Releases the button, which opens the menu; the keys are what its loop then finds.
    void Release(POINT point, const std::vector<WORD>& keys) {
        AwaitSecond();
        for (const WORD key : keys)
            PostMessageW(tree.Window(), WM_KEYDOWN, key, 0);
        SendMessageW(tree.Window(), WM_RBUTTONUP, 0, MAKELPARAM(point.x, point.y));
    }

    void RightClick(POINT point, const std::vector<WORD>& keys) {
        Press(point);
        Release(point, keys);
    }

    bool KeysLeft() const {
        MSG left;
        return PeekMessageW(&left, nullptr, WM_KEYDOWN, WM_KEYDOWN, PM_REMOVE) != FALSE;
    }
};

TEST_F(ContextMenuTest, PressSelectsTheItemAndShowsItsPage) {
    Store({L"A", L"B"});
    Open();
    tree.Expand(tree.Item(L"A"));
    Press(tree.Middle(tree.Child(tree.Item(L"A"), L"Columns")));
    EXPECT_EQ(tree.Text(tree.Selected()), L"Columns");
    EXPECT_EQ(VisiblePage(), IDC_COLUMNS_GROUP);
    Press(tree.Middle(tree.Item(L"B")));
    EXPECT_EQ(tree.Text(tree.Selected()), L"B");
    EXPECT_EQ(VisiblePage(), IDC_FORMAT_GROUP);
}

TEST_F(ContextMenuTest, PressOnTheButtonSelectsWithoutOpening) {
    Store({L"A", L"B"});
    Open();
    const RECT label = tree.Label(tree.Item(L"B"));
    const POINT button = {label.left - 12, (label.top + label.bottom) / 2};
    Press(button);
    EXPECT_EQ(tree.Text(tree.Selected()), L"B");
    EXPECT_FALSE(tree.IsExpanded(tree.Item(L"B")));
}

TEST_F(ContextMenuTest, PressBesideItemsLeavesTheSelection) {
    Store({L"A", L"B"});
    Open();
    Press(tree.EmptySpace());
    EXPECT_EQ(tree.Text(tree.Selected()), L"A");
    // On the row of an item, but right of its label.
    RECT client = {};
    GetClientRect(tree.Window(), &client);
    Press({client.right - 2, tree.Middle(tree.Item(L"B")).y});
    EXPECT_EQ(tree.Text(tree.Selected()), L"A");
}

TEST_F(ContextMenuTest, New) {
    Store({L"A"});
    Open();
    RightClick(tree.Middle(tree.Item(L"A")), {VK_DOWN, VK_RETURN});
    EXPECT_EQ(tree.Names(), (Names{L"A", L"New Preset"}));
    EXPECT_NE(SendMessageW(tree.Window(), TVM_GETEDITCONTROL, 0, 0), 0);
}

TEST_F(ContextMenuTest, EveryTemplate) {
    const Names templates = {L"All files (Simple, Text)",  L"All files (Simple, HTML)",
                             L"All files (Details, HTML)", L"Audio-files (HTML)",
                             L"Video-files (HTML)",        L"Repository (Exclude .git, .svn and .hg)"};
    Open();
    for (size_t i = 0; i < templates.size(); ++i) {
        std::vector<WORD> keys = {VK_DOWN, VK_DOWN, VK_RIGHT};
        keys.insert(keys.end(), i, VK_DOWN);
        keys.push_back(VK_RETURN);
        RightClick(tree.EmptySpace(), keys);
    }
    EXPECT_EQ(tree.Names(), templates);
}

TEST_F(ContextMenuTest, Duplicate) {
    Store({L"A", L"B"});
    Open();
    RightClick(tree.Middle(tree.Item(L"B")), {VK_DOWN, VK_DOWN, VK_DOWN, VK_RETURN});
    EXPECT_EQ(StoredPresets(), (Stored{{L"A", 3}, {L"B", 2}, {L"Copy of B", 1}}));
}

TEST_F(ContextMenuTest, Rename) {
    Store({L"A", L"B"});
    Open();
    RightClick(tree.Middle(tree.Item(L"B")), {VK_DOWN, VK_DOWN, VK_DOWN, VK_DOWN, VK_RETURN});
    ASSERT_NE(SendMessageW(tree.Window(), TVM_GETEDITCONTROL, 0, 0), 0);
    Type(L"Renamed");
    MainWindowTest::Press(VK_RETURN);
    EXPECT_EQ(StoredPresets(), (Stored{{L"A", 2}, {L"Renamed", 1}}));
}

TEST_F(ContextMenuTest, Remove) {
    Store({L"A", L"B"});
    Open();
    RightClick(tree.Middle(tree.Item(L"A")), {VK_DOWN, VK_DOWN, VK_DOWN, VK_DOWN, VK_DOWN, VK_RETURN});
    EXPECT_EQ(StoredPresets(), (Stored{{L"B", 1}}));
}

TEST_F(ContextMenuTest, OnEmptySpaceTheItemCommandsActOnTheSelectedPreset) {
    Store({L"A", L"B"});
    Open();
    RightClick(tree.EmptySpace(), {VK_DOWN, VK_DOWN, VK_DOWN, VK_RETURN});
    EXPECT_EQ(tree.Names(), (Names{L"A", L"B", L"Copy of A"}));
}

TEST_F(ContextMenuTest, OnAPageItemTheItemCommandsAreGray) {
    Store({L"A"});
    Open();
    tree.Expand(tree.Item(L"A"));
    const POINT page = tree.Middle(tree.Child(tree.Item(L"A"), L"Saving"));
    for (const size_t steps : {3, 4, 5}) {
        std::vector<WORD> keys(steps, VK_DOWN);
        keys.insert(keys.end(), {VK_RETURN, VK_ESCAPE});
        RightClick(page, keys);
        EXPECT_EQ(StoredPresets(), (Stored{{L"A", 1}})) << steps;
        EXPECT_EQ(SendMessageW(tree.Window(), TVM_GETEDITCONTROL, 0, 0), 0) << steps;
    }
}

TEST_F(ContextMenuTest, EscDoesNothing) {
    Store({L"A"});
    Open();
    RightClick(tree.Middle(tree.Item(L"A")), {VK_DOWN, VK_ESCAPE});
    EXPECT_FALSE(KeysLeft()) << "the menu was open and took the keys";
    EXPECT_EQ(StoredPresets(), (Stored{{L"A", 1}}));
}

TEST_F(ContextMenuTest, ReleaseOutsideTheTreeOpensNoMenu) {
    Store({L"A"});
    Open();
    Press(tree.Middle(tree.Item(L"A")));
    Release({-5, 5}, {VK_DOWN, VK_RETURN});
    EXPECT_TRUE(KeysLeft()) << "no menu took the keys";
    EXPECT_EQ(tree.Names(), Names{L"A"});
}

}  // namespace
