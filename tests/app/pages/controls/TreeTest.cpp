// A tree view by its operations, compared with what its messages say.

#include "winlib/controls/Tree.h"

#include "TreeFixture.h"

using WinLib::Controls::Tree;

namespace {

class TreeTest : public TreeFixture {
protected:
    Tree view{window};
};

TEST_F(TreeTest, NextWalksTheRelations) {
    const HTREEITEM a = Add(TVI_ROOT, L"a");
    const HTREEITEM b = Add(TVI_ROOT, L"b");
    const HTREEITEM child = Add(a, L"child");
    EXPECT_EQ(view.Next(TVGN_ROOT, nullptr), a);
    EXPECT_EQ(view.Next(TVGN_NEXT, a), b);
    EXPECT_EQ(view.Next(TVGN_PREVIOUS, b), a);
    EXPECT_EQ(view.Next(TVGN_CHILD, a), child);
    EXPECT_EQ(view.Parent(child), a);
    EXPECT_EQ(view.Next(TVGN_NEXT, b), nullptr);
    tree.Select(b);
    EXPECT_EQ(view.Caret(), b);
}

TEST_F(TreeTest, ChildrenAreThoseOfOneLevel) {
    EXPECT_TRUE(view.Children(TVI_ROOT).empty());
    const HTREEITEM a = Add(TVI_ROOT, L"a");
    const HTREEITEM b = Add(TVI_ROOT, L"b");
    const HTREEITEM first = Add(a, L"1");
    const HTREEITEM second = Add(a, L"2");
    Add(first, L"1.1");
    EXPECT_EQ(view.Children(TVI_ROOT), (std::vector<HTREEITEM>{a, b}));
    EXPECT_EQ(view.Children(a), (std::vector<HTREEITEM>{first, second}));
    EXPECT_TRUE(view.Children(b).empty());
}

TEST_F(TreeTest, InsertAppendsWithTextParameterAndState) {
    const HTREEITEM a = Add(TVI_ROOT, L"a");
    const HTREEITEM plain = view.Insert(a, L"plain", 5);
    const HTREEITEM checked = view.Insert(a, L"checked", 6, INDEXTOSTATEIMAGEMASK(2), TVIS_STATEIMAGEMASK);
    EXPECT_EQ(Outline(a), L"a(plain,checked)");
    EXPECT_EQ(tree.Parameter(plain), 5);
    EXPECT_EQ(tree.Parameter(checked), 6);
    EXPECT_EQ(view.State(plain, TVIS_STATEIMAGEMASK), 0u);
    EXPECT_EQ(view.State(checked, TVIS_STATEIMAGEMASK), static_cast<UINT>(INDEXTOSTATEIMAGEMASK(2)));
}

TEST_F(TreeTest, RemoveTakesTheItemsBelowAlong) {
    const HTREEITEM a = Add(TVI_ROOT, L"a");
    const HTREEITEM b = Add(TVI_ROOT, L"b");
    Add(a, L"1");
    view.Remove(a);
    EXPECT_EQ(view.Children(TVI_ROOT), std::vector<HTREEITEM>{b});
    view.Remove(TVI_ROOT);
    EXPECT_TRUE(view.Children(TVI_ROOT).empty());
}

TEST_F(TreeTest, ParameterAndStateOfNoItemAreNothing) {
    const HTREEITEM a = Add(TVI_ROOT, L"a", 9, TVIS_BOLD);
    EXPECT_EQ(view.Parameter(a), 9);
    EXPECT_EQ(view.Parameter(nullptr), std::nullopt);
    EXPECT_EQ(view.State(a, TVIS_BOLD | TVIS_CUT), static_cast<UINT>(TVIS_BOLD));
    EXPECT_EQ(view.State(nullptr, TVIS_BOLD), 0u);
    EXPECT_FALSE(view.IsExpanded(nullptr));
}

TEST_F(TreeTest, SetStateChangesOnlyTheBitsOfTheMask) {
    const HTREEITEM a = Add(TVI_ROOT, L"a", 0, TVIS_BOLD | INDEXTOSTATEIMAGEMASK(1));
    view.SetState(a, INDEXTOSTATEIMAGEMASK(3), TVIS_STATEIMAGEMASK);
    EXPECT_EQ(view.State(a, TVIS_BOLD | TVIS_STATEIMAGEMASK),
              static_cast<UINT>(TVIS_BOLD | INDEXTOSTATEIMAGEMASK(3)));
}

TEST_F(TreeTest, SetTextLeavesTheRest) {
    const HTREEITEM a = Add(TVI_ROOT, L"a", 7);
    std::wstring text = L"renamed";
    view.SetText(a, text.data());
    EXPECT_EQ(tree.Text(a), L"renamed");
    EXPECT_EQ(tree.Parameter(a), 7);
}

TEST_F(TreeTest, ExpandOpensAndCloses) {
    const HTREEITEM a = Add(TVI_ROOT, L"a");
    Add(a, L"1");
    view.Expand(a, true);
    EXPECT_TRUE(tree.IsExpanded(a));
    EXPECT_TRUE(view.IsExpanded(a));
    view.Expand(a, false);
    EXPECT_FALSE(tree.IsExpanded(a));
    EXPECT_FALSE(view.IsExpanded(a));
}

TEST_F(TreeTest, TheMiddleOfALabelIsOnItsItem) {
    Add(TVI_ROOT, L"a");
    const HTREEITEM b = Add(TVI_ROOT, L"b");
    const RECT label = view.LabelRect(b);
    const RECT expected = tree.Label(b);
    EXPECT_TRUE(EqualRect(&label, &expected));
    const TVHITTESTINFO hit = view.HitTest((label.left + label.right) / 2, (label.top + label.bottom) / 2);
    EXPECT_EQ(hit.hItem, b);
    EXPECT_EQ(hit.flags, static_cast<UINT>(TVHT_ONITEMLABEL));
}

TEST_F(TreeTest, StateImagesAreReturnedWhenTheyAreReplaced) {
    const WinLib::UniqueHandle<HIMAGELIST> first(ImageList_Create(16, 16, ILC_COLOR32, 1, 0));
    const WinLib::UniqueHandle<HIMAGELIST> second(ImageList_Create(16, 16, ILC_COLOR32, 1, 0));
    EXPECT_EQ(view.SetStateImages(first.get()), nullptr);
    WinLib::UniqueHandle<HIMAGELIST> replaced = view.SetStateImages(second.get());
    EXPECT_EQ(replaced.release(), first.get());
    replaced = view.SetStateImages(nullptr);
    EXPECT_EQ(replaced.release(), second.get());
}

}  // namespace
