// The exchange of tree items with everything below them.

#include "winlib/controls/TreeView.h"

#include "TreeFixture.h"

using WinLib::Controls::TreeView::MoveItem;
using WinLib::Controls::TreeView::SwapItems;

namespace {

class TreeViewTest : public TreeFixture {
protected:
    UINT State(HTREEITEM item) const {
        return static_cast<UINT>(
            SendMessageW(window, TVM_GETITEMSTATE, reinterpret_cast<WPARAM>(item), static_cast<LPARAM>(~0U)));
    }
};

TEST_F(TreeViewTest, SwapExchangesTextParameterAndStateOfLeaves) {
    const HTREEITEM a = Add(TVI_ROOT, L"a", 7, INDEXTOSTATEIMAGEMASK(2) | TVIS_BOLD);
    const HTREEITEM b = Add(TVI_ROOT, L"b", 9, INDEXTOSTATEIMAGEMASK(1));
    SwapItems(window, a, b);
    EXPECT_EQ(tree.Text(a), L"b");
    EXPECT_EQ(tree.Parameter(a), 9);
    EXPECT_EQ(State(a) & (TVIS_STATEIMAGEMASK | TVIS_BOLD), static_cast<UINT>(INDEXTOSTATEIMAGEMASK(1)));
    EXPECT_EQ(tree.Text(b), L"a");
    EXPECT_EQ(tree.Parameter(b), 7);
    EXPECT_EQ(State(b) & (TVIS_STATEIMAGEMASK | TVIS_BOLD), INDEXTOSTATEIMAGEMASK(2) | TVIS_BOLD);
    EXPECT_EQ(tree.Related(a, TVGN_NEXT), b) << "the handles stay where they are";
}

TEST_F(TreeViewTest, SwapTakesSubtreesAlong) {
    struct Row {
        std::vector<const wchar_t*> ofA, ofB;
        const wchar_t* a;
        const wchar_t* b;
    };
    const Row rows[] = {
        {{}, {}, L"b", L"a"},
        {{L"1"}, {}, L"b", L"a(1)"},
        {{}, {L"1"}, L"b(1)", L"a"},
        {{L"1", L"2"}, {L"3", L"4"}, L"b(3,4)", L"a(1,2)"},
        {{L"1", L"2", L"3"}, {L"4"}, L"b(4)", L"a(1,2,3)"},
        {{L"1"}, {L"2", L"3", L"4"}, L"b(2,3,4)", L"a(1)"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(testing::Message() << row.ofA.size() << " and " << row.ofB.size());
        const HTREEITEM a = Add(TVI_ROOT, L"a");
        const HTREEITEM b = Add(TVI_ROOT, L"b");
        for (const wchar_t* const text : row.ofA)
            Add(a, text);
        for (const wchar_t* const text : row.ofB)
            Add(b, text);
        SwapItems(window, a, b);
        EXPECT_EQ(Outline(a), row.a);
        EXPECT_EQ(Outline(b), row.b);
    }
}

TEST_F(TreeViewTest, SwapGoesDownToEveryLevel) {
    const HTREEITEM a = Add(TVI_ROOT, L"a");
    const HTREEITEM b = Add(TVI_ROOT, L"b");
    Add(Add(a, L"1"), L"1.1");
    const HTREEITEM two = Add(b, L"2");
    Add(two, L"2.1");
    Add(two, L"2.2");
    SwapItems(window, a, b);
    EXPECT_EQ(Outline(a), L"b(2(2.1,2.2))");
    EXPECT_EQ(Outline(b), L"a(1(1.1))");
}

TEST_F(TreeViewTest, ParametersTravelWithTheirTexts) {
    const HTREEITEM a = Add(TVI_ROOT, L"a", 1);
    const HTREEITEM b = Add(TVI_ROOT, L"b", 2);
    Add(a, L"a1", 11);
    Add(a, L"a2", 12);
    Add(b, L"b1", 21);
    SwapItems(window, a, b);
    EXPECT_EQ(tree.Parameter(tree.Child(b, L"a1")), 11);
    EXPECT_EQ(tree.Parameter(tree.Child(b, L"a2")), 12);
    EXPECT_EQ(tree.Parameter(tree.Child(a, L"b1")), 21);
}

TEST_F(TreeViewTest, SelectionFollowsTheContents) {
    const HTREEITEM a = Add(TVI_ROOT, L"a");
    const HTREEITEM b = Add(TVI_ROOT, L"b");
    const HTREEITEM c = Add(TVI_ROOT, L"c");
    tree.Select(a);
    SwapItems(window, a, b);
    EXPECT_EQ(tree.Selected(), b);
    SwapItems(window, a, b);
    EXPECT_EQ(tree.Selected(), a);
    SwapItems(window, b, c);
    EXPECT_EQ(tree.Selected(), a);
}

TEST_F(TreeViewTest, SelectionOfAChildFollowsTheContents) {
    const HTREEITEM a = Add(TVI_ROOT, L"a");
    const HTREEITEM b = Add(TVI_ROOT, L"b");
    const HTREEITEM child = Add(a, L"a1");
    Add(b, L"b1");
    tree.Expand(a);
    tree.Expand(b);
    tree.Select(child);
    SwapItems(window, a, b);
    EXPECT_EQ(tree.Text(tree.Selected()), L"a1");
    EXPECT_EQ(tree.Related(tree.Selected(), TVGN_PARENT), b);
}

TEST_F(TreeViewTest, ExpansionFollowsTheContents) {
    const HTREEITEM a = Add(TVI_ROOT, L"a");
    const HTREEITEM b = Add(TVI_ROOT, L"b");
    for (const HTREEITEM item : {a, b})
        Add(item, L"child");
    tree.Expand(a);
    SwapItems(window, a, b);
    EXPECT_FALSE(tree.IsExpanded(a));
    EXPECT_TRUE(tree.IsExpanded(b));
    SwapItems(window, a, b);
    EXPECT_TRUE(tree.IsExpanded(a));
    EXPECT_FALSE(tree.IsExpanded(b));
}

TEST_F(TreeViewTest, SelectedChildOpensOnlyTheItemThatIsOpen) {
    const HTREEITEM a = Add(TVI_ROOT, L"a");
    const HTREEITEM b = Add(TVI_ROOT, L"b");
    const HTREEITEM child = Add(a, L"a1");
    Add(b, L"b1");
    tree.Expand(a);
    tree.Select(child);
    SwapItems(window, a, b);
    EXPECT_FALSE(tree.IsExpanded(a));
    EXPECT_TRUE(tree.IsExpanded(b));
    EXPECT_EQ(tree.Selected(), tree.Child(b, L"a1"));
    SwapItems(window, a, b);
    EXPECT_TRUE(tree.IsExpanded(a));
    EXPECT_FALSE(tree.IsExpanded(b));
    EXPECT_EQ(tree.Selected(), tree.Child(a, L"a1"));
}

TEST_F(TreeViewTest, ItemThatGetsChildrenCanBeOpened) {
    const HTREEITEM a = Add(TVI_ROOT, L"a");
    const HTREEITEM b = Add(TVI_ROOT, L"b");
    Add(a, L"child");
    SwapItems(window, a, b);
    tree.Expand(b);
    EXPECT_TRUE(tree.IsExpanded(b));
}

TEST_F(TreeViewTest, MoveAppendsToTheNewParent) {
    const HTREEITEM a = Add(TVI_ROOT, L"a");
    const HTREEITEM b = Add(TVI_ROOT, L"b");
    const HTREEITEM moved = Add(a, L"1", 5, INDEXTOSTATEIMAGEMASK(2));
    Add(a, L"2");
    Add(b, L"3");
    MoveItem(window, moved, b);
    EXPECT_EQ(Outline(a), L"a(2)");
    EXPECT_EQ(Outline(b), L"b(3,1)");
    const HTREEITEM place = tree.Child(b, L"1");
    EXPECT_EQ(tree.Parameter(place), 5);
    EXPECT_EQ(State(place) & TVIS_STATEIMAGEMASK, static_cast<UINT>(INDEXTOSTATEIMAGEMASK(2)));
}

TEST_F(TreeViewTest, LongTextsAreCutAt1023Characters) {
    const std::wstring longest(1023, L'x');
    const HTREEITEM a = Add(TVI_ROOT, longest + L"yz");
    const HTREEITEM b = Add(TVI_ROOT, L"b");
    SwapItems(window, a, b);
    EXPECT_EQ(tree.Text(b), longest);
    MoveItem(window, Add(TVI_ROOT, longest + L"yz"), a);
    EXPECT_EQ(tree.Text(tree.Related(a, TVGN_CHILD)), longest);
}

}  // namespace
