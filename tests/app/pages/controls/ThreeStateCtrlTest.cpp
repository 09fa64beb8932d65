// The tree with boxes of three states, by call, by mouse and by keyboard.

#include "winlib/controls/ThreeStateCtrl.h"

#include "TreeFixture.h"
#include "support/ui/Input.h"

using WinLib::Controls::TreeView::GetItemState;
using WinLib::Controls::TreeView::ItemState;
using WinLib::Controls::TreeView::ThreeStateCtrl;

namespace {

constexpr ItemState Off = ItemState::Unchecked;
constexpr ItemState On = ItemState::Checked;
constexpr ItemState Mixed = ItemState::Mixed;

class ThreeStateCtrlTest : public TreeFixture {
protected:
    ThreeStateCtrlTest() {
        SetWindowLongPtrW(window, GWL_STYLE, GetWindowLongPtrW(window, GWL_STYLE) | TVS_CHECKBOXES);
        images = ImageList_Create(16, 16, ILC_COLOR32, 4, 0);
        ImageList_SetImageCount(images, 4);
        control.StateImages.reset(images);
        WinLib::Attach(control, window);
        root = Add(TVI_ROOT, L"root");
        first = Add(root, L"first");
        second = Add(root, L"second");
        deep = Add(second, L"deep");
        for (const HTREEITEM item : {root, second})
            tree.Expand(item);
    }

    ItemState State(HTREEITEM item) const { return GetItemState(window, item); }

    void SetState(HTREEITEM item, ItemState state) const {
        TVITEMW change = {};
        change.mask = TVIF_STATE;
        change.hItem = item;
        change.stateMask = TVIS_STATEIMAGEMASK;
        change.state = INDEXTOSTATEIMAGEMASK(static_cast<UINT>(state));
        SendMessageW(window, TVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&change));
    }

    std::vector<ItemState> All() const { return {State(root), State(first), State(second), State(deep)}; }

    // The first point of the item's row, from its label to the left, that the tree calls by this flag.
    POINT Part(HTREEITEM item, UINT flag) const {
        TVHITTESTINFO hit = {};
        for (hit.pt = tree.Middle(item); hit.pt.x >= 0; hit.pt.x--) {
            SendMessageW(window, TVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit));
            if (hit.flags & flag)
                return hit.pt;
        }
        ADD_FAILURE() << "no such part";
        return {};
    }

    bool Send(UINT message, POINT point) {
        LRESULT result = 7;
        const bool handled = control.OnMessage(message, 0, MAKELPARAM(point.x, point.y), result);
        EXPECT_TRUE(!handled || result == 7 || result == 0);
        return handled;
    }

    HIMAGELIST images = nullptr;
    ThreeStateCtrl control;
    HTREEITEM root, first, second, deep;
};

TEST_F(ThreeStateCtrlTest, AttachingInstallsTheStateImages) {
    EXPECT_EQ(SendMessageW(window, TVM_GETIMAGELIST, TVSIL_STATE, 0), reinterpret_cast<LRESULT>(images));
}

TEST_F(ThreeStateCtrlTest, ItemsStartUnchecked) {
    EXPECT_EQ(All(), (std::vector{Off, Off, Off, Off}));
}

TEST_F(ThreeStateCtrlTest, ToggleReachesAllDescendants) {
    control.Toggle(root);
    EXPECT_EQ(All(), (std::vector{On, On, On, On}));
    control.Toggle(root);
    EXPECT_EQ(All(), (std::vector{Off, Off, Off, Off}));
}

TEST_F(ThreeStateCtrlTest, OneOfSeveralMakesTheParentMixed) {
    control.Toggle(first);
    EXPECT_EQ(All(), (std::vector{Mixed, On, Off, Off}));
}

TEST_F(ThreeStateCtrlTest, MixedItemBecomesCheckedWithAllBelow) {
    control.Toggle(first);
    control.Toggle(root);
    EXPECT_EQ(All(), (std::vector{On, On, On, On}));
}

TEST_F(ThreeStateCtrlTest, CheckingTheLastChildChecksTheParents) {
    control.Toggle(first);
    control.Toggle(deep);
    EXPECT_EQ(All(), (std::vector{On, On, On, On}));
}

TEST_F(ThreeStateCtrlTest, UncheckingTheLastCheckedChildUnchecksTheParents) {
    control.Toggle(deep);
    EXPECT_EQ(All(), (std::vector{Mixed, Off, On, On}));
    control.Toggle(deep);
    EXPECT_EQ(All(), (std::vector{Off, Off, Off, Off}));
}

TEST_F(ThreeStateCtrlTest, MixedChildMakesTheParentMixed) {
    const HTREEITEM deeper = Add(second, L"deeper");
    control.Toggle(first);
    control.Toggle(deeper);
    EXPECT_EQ(All(), (std::vector{Mixed, On, Mixed, Off}));
}

TEST_F(ThreeStateCtrlTest, UpdateStopsAtTheFirstParentThatDoesNotChange) {
    // root is wrong on purpose: an update that climbed on would mend it.
    SetState(root, On);
    SetState(second, On);
    SetState(deep, On);
    control.UpdateParent(second);
    EXPECT_EQ(State(root), On);
    SetState(deep, Off);
    control.UpdateParent(second);
    EXPECT_EQ(State(second), Off);
    EXPECT_EQ(State(root), Off);
}

TEST_F(ThreeStateCtrlTest, NoItemIsIgnored) {
    control.Toggle(nullptr);
    control.UpdateParent(nullptr);
    EXPECT_EQ(All(), (std::vector{Off, Off, Off, Off}));
}

TEST_F(ThreeStateCtrlTest, EitherButtonOnTheStateImageSelectsAndToggles) {
    for (const UINT message : {WM_LBUTTONDOWN, WM_RBUTTONDOWN}) {
        SCOPED_TRACE(message);
        tree.Select(root);
        const ItemState before = State(first);
        EXPECT_TRUE(Send(message, Part(first, TVHT_ONITEMSTATEICON)));
        EXPECT_EQ(tree.Selected(), first);
        EXPECT_NE(State(first), before);
    }
}

TEST_F(ThreeStateCtrlTest, EitherButtonOnTheLabelOnlySelects) {
    for (const UINT message : {WM_LBUTTONDOWN, WM_RBUTTONDOWN}) {
        SCOPED_TRACE(message);
        tree.Select(root);
        EXPECT_TRUE(Send(message, Part(second, TVHT_ONITEMLABEL)));
        EXPECT_EQ(tree.Selected(), second);
        EXPECT_EQ(All(), (std::vector{Off, Off, Off, Off}));
    }
}

TEST_F(ThreeStateCtrlTest, EitherButtonOnTheExpandButtonFoldsWithoutSelecting) {
    tree.Select(first);
    for (const UINT message : {WM_LBUTTONDOWN, WM_RBUTTONDOWN}) {
        SCOPED_TRACE(message);
        const POINT button = Part(second, TVHT_ONITEMBUTTON);
        EXPECT_TRUE(Send(message, button));
        EXPECT_FALSE(tree.IsExpanded(second));
        EXPECT_TRUE(Send(message, button));
        EXPECT_TRUE(tree.IsExpanded(second));
        EXPECT_EQ(tree.Selected(), first);
    }
    EXPECT_EQ(All(), (std::vector{Off, Off, Off, Off}));
}

TEST_F(ThreeStateCtrlTest, PressBesideItemsIsHandledAndChangesNothing) {
    tree.Select(first);
    EXPECT_TRUE(Send(WM_LBUTTONDOWN, tree.EmptySpace()));
    EXPECT_TRUE(Send(WM_RBUTTONDOWN, tree.EmptySpace()));
    EXPECT_EQ(tree.Selected(), first);
    EXPECT_EQ(All(), (std::vector{Off, Off, Off, Off}));
}

TEST_F(ThreeStateCtrlTest, PressTakesTheFocus) {
    const HWND other = host.Add(L"Edit", L"", WS_TABSTOP, {410, 0, 500, 20});
    for (const UINT message : {WM_LBUTTONDOWN, WM_RBUTTONDOWN}) {
        SetFocus(other);
        Send(message, tree.EmptySpace());
        EXPECT_EQ(GetFocus(), window) << message;
    }
}

TEST_F(ThreeStateCtrlTest, DoubleClickOnTheLabelToggles) {
    EXPECT_TRUE(Send(WM_LBUTTONDBLCLK, Part(first, TVHT_ONITEMLABEL)));
    EXPECT_EQ(State(first), On);
}

TEST_F(ThreeStateCtrlTest, SecondClickOnTheStateImageIsSwallowed) {
    const POINT box = Part(first, TVHT_ONITEMSTATEICON);
    Send(WM_LBUTTONDOWN, box);
    EXPECT_TRUE(Send(WM_LBUTTONDBLCLK, box));
    EXPECT_EQ(State(first), On);
}

TEST_F(ThreeStateCtrlTest, DoubleClickElsewhereIsTheTreesOwn) {
    EXPECT_FALSE(Send(WM_LBUTTONDBLCLK, tree.EmptySpace()));
    EXPECT_FALSE(Send(WM_LBUTTONDBLCLK, Part(second, TVHT_ONITEMBUTTON)));
    EXPECT_EQ(All(), (std::vector{Off, Off, Off, Off}));
}

TEST_F(ThreeStateCtrlTest, SpaceTogglesTheSelectedItem) {
    tree.Select(second);
    LRESULT result = 0;
    EXPECT_TRUE(control.OnMessage(WM_KEYDOWN, VK_SPACE, 0, result));
    EXPECT_EQ(All(), (std::vector{Mixed, Off, On, On}));
}

TEST_F(ThreeStateCtrlTest, SpaceWithoutSelectionDoesNothing) {
    tree.Select(nullptr);
    LRESULT result = 0;
    EXPECT_TRUE(control.OnMessage(WM_KEYDOWN, VK_SPACE, 0, result));
    EXPECT_EQ(All(), (std::vector{Off, Off, Off, Off}));
}

TEST_F(ThreeStateCtrlTest, OtherKeysAreTheTreesOwn) {
    Ui::MessagePump pump(host.Handle);
    SetFocus(window);
    tree.Select(root);
    Ui::TypeKeys(pump, {VK_DOWN});
    EXPECT_EQ(tree.Selected(), first);
    Ui::TypeKeys(pump, {VK_SPACE});
    EXPECT_EQ(State(first), On);
}

}  // namespace
