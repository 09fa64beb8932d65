// Drag and drop of presets, by the mouse messages of the tree.

#include <algorithm>

#include "support/ui/MainWindowTest.h"
#include "support/ui/Picture.h"

namespace {

using Names = std::vector<std::wstring>;

// The TVM_SETINSERTMARK messages of the tree that is watched: "after", and the item.
using Mark = std::pair<WPARAM, HTREEITEM>;
std::vector<Mark> marks;
WNDPROC watched = nullptr;

LRESULT CALLBACK WatchMarks(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == TVM_SETINSERTMARK)
        marks.emplace_back(wParam, reinterpret_cast<HTREEITEM>(lParam));
    return CallWindowProcW(watched, window, message, wParam, lParam);
}

class DragTest : public MainWindowTest {
protected:
    void OpenWith(const Names& names) {
        Store(names);
        Open();
        marks.clear();
        watched = reinterpret_cast<WNDPROC>(
            SetWindowLongPtrW(tree.Window(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(WatchMarks)));
    }

    // The tree's own handling of the press runs a loop of its own until it meets the button-up, which it
    // swallows.
    void Press(POINT point) const {
        PostMessageW(tree.Window(), WM_LBUTTONUP, 0, MAKELPARAM(point.x, point.y));
        SendMessageW(tree.Window(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(point.x, point.y));
    }

    // A press that the mouse leaves at once with the button down: the tree's own loop ends by the move, and
    // the selection stays where it is.
    void PressAndPull(POINT point) const {
        const POINT pulled = {point.x, point.y + 2 * GetSystemMetrics(SM_CYDRAG)};
        PostMessageW(tree.Window(), WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(pulled.x, pulled.y));
        SendMessageW(tree.Window(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(point.x, point.y));
        Move(pulled);
    }

    void Move(POINT point, WPARAM keys = MK_LBUTTON) const {
        SendMessageW(tree.Window(), WM_MOUSEMOVE, keys, MAKELPARAM(point.x, point.y));
    }

    void Release(POINT point) const {
        SendMessageW(tree.Window(), WM_LBUTTONUP, 0, MAKELPARAM(point.x, point.y));
    }

    void Drag(POINT from, POINT to) const {
        Press(from);
        Move({from.x, from.y + GetSystemMetrics(SM_CYDRAG)});
        Move(to);
        Release(to);
    }

    void Drag(HTREEITEM from, HTREEITEM to) const { Drag(tree.Middle(from), tree.Middle(to)); }

    static bool IsDragging() { return ImageList_GetDragImage(nullptr, nullptr) != nullptr; }

    static POINT ImagePlace() {
        POINT place = {};
        ImageList_GetDragImage(&place, nullptr);
        return place;
    }

    // Makes any save visible: a saved preset gets its position back.
    void ForgetPositions(size_t count) const {
        for (size_t i = 0; i < count; ++i)
            registry.SetDword(KeyOf(i), L"Position", 900);
    }

    bool NothingSaved(size_t count) const {
        for (size_t i = 0; i < count; ++i)
            if (registry.Get(KeyOf(i), L"Position") != TestSupport::DwordValue(900))
                return false;
        return true;
    }
};

TEST_F(DragTest, EveryDropIsDirectlyBelowItsTarget) {
    Names order = {L"A", L"B", L"C", L"D"};
    OpenWith(order);
    // By places, from each to each other one; the order changes on the way.
    for (size_t from = 0; from < order.size(); ++from) {
        for (size_t to = 0; to < order.size(); ++to) {
            if (from == to)
                continue;
            const std::wstring dragged = order[from];
            const std::wstring target = order[to];
            const std::wstring what = dragged + L" onto " + target;
            order.erase(order.begin() + static_cast<std::ptrdiff_t>(from));
            order.insert(std::ranges::find(order, target) + 1, dragged);
            Stored positions;
            for (size_t i = 0; i < order.size(); ++i)
                positions.emplace_back(order[i], static_cast<uint32_t>(order.size() - i));

            Drag(tree.Item(dragged), tree.Item(target));
            EXPECT_EQ(tree.Names(), order) << testing::PrintToString(what);
            EXPECT_EQ(StoredPresets(), positions) << testing::PrintToString(what);
            EXPECT_EQ(tree.Text(tree.Selected()), dragged);
            EXPECT_FALSE(IsDragging());
            EXPECT_NE(GetCapture(), tree.Window());
        }
    }
}

TEST_F(DragTest, DropOnAChildIsBelowItsPreset) {
    OpenWith({L"A", L"B", L"C"});
    tree.Expand(tree.Item(L"B"));
    Drag(tree.Item(L"A"), tree.Child(tree.Item(L"B"), L"Columns"));
    EXPECT_EQ(StoredPresets(), (Stored{{L"B", 3}, {L"A", 2}, {L"C", 1}}));
}

TEST_F(DragTest, DropOnTheItemAboveChangesNothingButSaves) {
    OpenWith({L"A", L"B", L"C"});
    ForgetPositions(3);
    Drag(tree.Item(L"B"), tree.Item(L"A"));
    EXPECT_EQ(tree.Names(), (Names{L"A", L"B", L"C"}));
    EXPECT_EQ(StoredPresets(), (Stored{{L"A", 3}, {L"B", 2}, {L"C", 1}}));
}

TEST_F(DragTest, DropOnItselfSavesNothing) {
    OpenWith({L"A", L"B"});
    tree.Expand(tree.Item(L"A"));
    ForgetPositions(2);
    Drag(tree.Item(L"A"), tree.Item(L"A"));
    Drag(tree.Item(L"A"), tree.Child(tree.Item(L"A"), L"Opening"));
    EXPECT_EQ(tree.Names(), (Names{L"A", L"B"}));
    EXPECT_TRUE(NothingSaved(2));
}

TEST_F(DragTest, DropOnEmptySpaceSavesNothing) {
    OpenWith({L"A", L"B"});
    ForgetPositions(2);
    Drag(tree.Middle(tree.Item(L"A")), tree.EmptySpace());
    Drag(tree.Middle(tree.Item(L"A")), {-20, -20});
    EXPECT_EQ(tree.Names(), (Names{L"A", L"B"}));
    EXPECT_TRUE(NothingSaved(2));
    EXPECT_FALSE(IsDragging());
}

TEST_F(DragTest, ChildItemsCannotBeDragged) {
    OpenWith({L"A", L"B"});
    tree.Expand(tree.Item(L"A"));
    ForgetPositions(2);
    const POINT child = tree.Middle(tree.Child(tree.Item(L"A"), L"Filter"));
    const POINT target = tree.Middle(tree.Item(L"B"));
    Press(child);
    EXPECT_NE(GetCapture(), tree.Window());
    Move(target);
    EXPECT_FALSE(IsDragging());
    Release(target);
    EXPECT_EQ(tree.Names(), (Names{L"A", L"B"}));
    EXPECT_TRUE(NothingSaved(2));
}

TEST_F(DragTest, BelowTheThresholdNothingHappens) {
    OpenWith({L"A", L"B"});
    ForgetPositions(2);
    const POINT start = tree.Middle(tree.Item(L"A"));
    const int nearX = GetSystemMetrics(SM_CXDRAG) - 1;
    const int nearY = GetSystemMetrics(SM_CYDRAG) - 1;
    Press(start);
    for (const POINT step : {POINT{nearX, nearY}, POINT{-nearX, -nearY}, POINT{0, 0}}) {
        Move({start.x + step.x, start.y + step.y});
        EXPECT_FALSE(IsDragging());
    }
    Release(start);
    EXPECT_EQ(tree.Names(), (Names{L"A", L"B"}));
    EXPECT_TRUE(NothingSaved(2));
    EXPECT_TRUE(marks.empty());
}

TEST_F(DragTest, TheThresholdItselfBeginsADragInEveryDirection) {
    OpenWith({L"A", L"B"});
    const int x = GetSystemMetrics(SM_CXDRAG);
    const int y = GetSystemMetrics(SM_CYDRAG);
    const POINT start = tree.Middle(tree.Item(L"A"));
    for (const POINT step : {POINT{x, 0}, POINT{-x, 0}, POINT{0, y}, POINT{0, -y}}) {
        Press(start);
        EXPECT_FALSE(IsDragging());
        Move({start.x + step.x, start.y + step.y});
        EXPECT_TRUE(IsDragging()) << step.x << ", " << step.y;
        EXPECT_EQ(GetCapture(), tree.Window());
        Release(start);
        EXPECT_FALSE(IsDragging());
        EXPECT_NE(GetCapture(), tree.Window());
    }
}

TEST_F(DragTest, AMoveWithTheButtonUpEndsTheWait) {
    OpenWith({L"A", L"B"});
    const POINT start = tree.Middle(tree.Item(L"A"));
    Press(start);
    Move(start, 0);
    EXPECT_NE(GetCapture(), tree.Window());
    // Far enough, but the button went up before.
    Move(tree.Middle(tree.Item(L"B")));
    EXPECT_FALSE(IsDragging());
}

TEST_F(DragTest, AMoveAfterTheReleaseBeginsNothing) {
    OpenWith({L"A", L"B"});
    Press(tree.Middle(tree.Item(L"A")));
    Release(tree.Middle(tree.Item(L"A")));
    Move(tree.Middle(tree.Item(L"B")));
    EXPECT_FALSE(IsDragging());
}

TEST_F(DragTest, MarksThePlaceOfTheDrop) {
    OpenWith({L"A", L"B", L"C", L"D"});
    tree.Expand(tree.Item(L"D"));
    tree.Expand(tree.Item(L"A"));
    const HTREEITEM a = tree.Item(L"A");
    const HTREEITEM b = tree.Item(L"B");
    const HTREEITEM c = tree.Item(L"C");
    const HTREEITEM d = tree.Item(L"D");
    struct Row {
        const char* what;
        POINT point;
        Mark mark;
    };
    const Row rows[] = {
        {"itself", tree.Middle(c), {0, nullptr}},
        {"the item above", tree.Middle(b), {0, nullptr}},
        {"an open preset: after its last child", tree.Middle(a), {1, tree.Child(a, L"Opening")}},
        {"a child", tree.Middle(tree.Child(a, L"Display")), {1, tree.Child(a, L"Opening")}},
        {"the open preset below", tree.Middle(d), {1, tree.Child(d, L"Opening")}},
        {"no item", tree.EmptySpace(), {1, nullptr}},
    };
    const POINT start = tree.Middle(c);
    Press(start);
    Move({start.x, start.y + GetSystemMetrics(SM_CYDRAG)});
    EXPECT_EQ(marks, (std::vector<Mark>{{0, nullptr}})) << "the move that begins the drag marks, too";
    for (const Row& row : rows) {
        marks.clear();
        Move(row.point);
        EXPECT_EQ(marks, std::vector<Mark>{row.mark}) << row.what;
    }
    marks.clear();
    Release(tree.EmptySpace());
    EXPECT_EQ(marks, (std::vector<Mark>{{0, nullptr}})) << "cleared by the drop";
}

TEST_F(DragTest, MarksACollapsedPresetItself) {
    OpenWith({L"A", L"B", L"C"});
    const POINT start = tree.Middle(tree.Item(L"A"));
    Press(start);
    Move({start.x, start.y + GetSystemMetrics(SM_CYDRAG)});
    marks.clear();
    Move(tree.Middle(tree.Item(L"C")));
    EXPECT_EQ(marks, (std::vector<Mark>{{1, tree.Item(L"C")}}));
    Release(start);
}

TEST_F(DragTest, TheImageFollowsInsideTheTree) {
    OpenWith({L"A", L"B"});
    const RECT label = tree.Label(tree.Item(L"A"));
    const POINT start = {label.left + 3, label.top + 5};
    Press(start);
    Move({start.x, start.y + 6});
    POINT place = {};
    POINT hotSpot = {};
    ASSERT_NE(ImageList_GetDragImage(&place, &hotSpot), nullptr);
    EXPECT_EQ(hotSpot.x, 3);
    EXPECT_EQ(hotSpot.y, 0);
    Move({30, 25});
    EXPECT_EQ(ImagePlace().x, 30);
    EXPECT_EQ(ImagePlace().y, 25);
    // Left and top belong to the tree, right and bottom do not.
    RECT client = {};
    GetClientRect(tree.Window(), &client);
    for (const POINT outside :
         {POINT{-1, 25}, POINT{30, -1}, POINT{client.right, 25}, POINT{30, client.bottom}}) {
        Move(outside);
        EXPECT_EQ(ImagePlace().x, 30) << outside.x << ", " << outside.y;
        EXPECT_EQ(ImagePlace().y, 25) << outside.x << ", " << outside.y;
    }
    Move({0, 0});
    EXPECT_EQ(ImagePlace().x, 0);
    EXPECT_EQ(ImagePlace().y, 0);
    Release(start);
}

// Which its image list of 16 colours can hold.
TEST_F(DragTest, TheBarHasOneColour) {
    OpenWith({L"A"});
    PressAndPull(tree.Middle(tree.Item(L"A")));
    const HIMAGELIST images = ImageList_GetDragImage(nullptr, nullptr);
    ASSERT_NE(images, nullptr);
    const COLORREF colour = Ui::OfSmallIcon(IDI_DRAG, RGB(255, 255, 255)).pixels.front();
    for (const COLORREF ground : {RGB(255, 255, 255), RGB(0, 0, 0)}) {
        const Ui::Picture bar = Ui::OfImage(images, 0, ground);
        EXPECT_EQ(bar.width, 64);
        EXPECT_EQ(bar.height, 2);
        EXPECT_EQ(bar.Count(colour), 64 * 2) << std::hex << colour << ", but " << bar.pixels.front();
        EXPECT_NE(colour, ground);
    }
    IMAGEINFO info = {};
    ASSERT_TRUE(ImageList_GetImageInfo(images, 0, &info));
    BITMAP bitmap = {};
    ASSERT_NE(GetObjectW(info.hbmImage, sizeof(bitmap), &bitmap), 0);
    EXPECT_EQ(bitmap.bmBitsPixel, 4);
    EXPECT_NE(info.hbmMask, nullptr);
}

TEST_F(DragTest, SelectionAndOpenItemsTravel) {
    OpenWith({L"A", L"B", L"C"});
    tree.Expand(tree.Item(L"A"));
    tree.Expand(tree.Item(L"C"));
    const HWND page = Pages().front();
    Drag(tree.Item(L"A"), tree.Item(L"C"));
    EXPECT_EQ(tree.Names(), (Names{L"B", L"C", L"A"}));
    EXPECT_EQ(tree.Text(tree.Selected()), L"A");
    EXPECT_TRUE(IsWindowVisible(page));
    EXPECT_EQ(VisiblePage(), IDC_FORMAT_GROUP);
    EXPECT_TRUE(tree.IsExpanded(tree.Item(L"A")));
    EXPECT_FALSE(tree.IsExpanded(tree.Item(L"B")));
    EXPECT_TRUE(tree.IsExpanded(tree.Item(L"C")));
}

TEST_F(DragTest, ClosedPresetsStayClosedWhenTheSelectedPageOfAnOpenOneTravels) {
    OpenWith({L"A", L"B", L"C", L"D"});
    for (const auto& [dragged, target] : {std::pair(L"A", L"C"), std::pair(L"D", L"B")}) {
        SCOPED_TRACE(testing::PrintToString(dragged));
        tree.Expand(tree.Item(L"A"));
        tree.Select(tree.Child(tree.Item(L"A"), L"Columns"));
        const POINT goal = tree.Middle(tree.Item(target));
        PressAndPull(tree.Middle(tree.Item(dragged)));
        ASSERT_TRUE(IsDragging());
        Move(goal);
        Release(goal);
        EXPECT_EQ(tree.Selected(), tree.Child(tree.Item(L"A"), L"Columns"));
        EXPECT_EQ(VisiblePage(), IDC_COLUMNS_GROUP);
        EXPECT_TRUE(tree.IsExpanded(tree.Item(L"A")));
        for (const wchar_t* const other : {L"B", L"C", L"D"})
            EXPECT_FALSE(tree.IsExpanded(tree.Item(other))) << testing::PrintToString(other);
    }
    EXPECT_EQ(tree.Names(), (Names{L"B", L"D", L"C", L"A"}));
}

TEST_F(DragTest, ItemsKeepTheirPresetsAndPages) {
    OpenWith({L"A", L"B", L"C"});
    Drag(tree.Item(L"C"), tree.Item(L"A"));
    Drag(tree.Item(L"A"), tree.Item(L"B"));
    EXPECT_EQ(tree.Names(), (Names{L"C", L"B", L"A"}));
    controller->RenamePreset(tree.Item(L"C"), L"Third");
    EXPECT_EQ(registry.Get(KeyOf(2), L"Name"), TestSupport::StringValue(L"Third"));
    tree.Select(tree.Child(tree.Item(L"B"), L"Sorting"));
    EXPECT_EQ(VisiblePage(), IDC_SORTING_GROUP);
    // B was the second to get its pages.
    EXPECT_TRUE(IsWindowVisible(Pages()[7 + 4]));
}

TEST_F(DragTest, TheNextPresetIsBelowTheNewOrder) {
    OpenWith({L"A", L"B"});
    Drag(tree.Item(L"A"), tree.Item(L"B"));
    Command(IDM_TEMPLATE_FIRST);
    EXPECT_EQ(StoredPresets(), (Stored{{L"B", 3}, {L"A", 2}, {L"All files (Simple, Text)", 1}}));
}

TEST_F(DragTest, RemovingTheDraggedPresetEndsTheDrag) {
    OpenWith({L"A", L"B", L"C"});
    const POINT start = tree.Middle(tree.Item(L"A"));
    Press(start);
    Move({start.x, start.y + GetSystemMetrics(SM_CYDRAG)});
    ASSERT_TRUE(IsDragging());
    marks.clear();
    SendMessageW(window, WM_COMMAND, MAKEWPARAM(VK_DELETE, 1), 0);
    EXPECT_EQ(tree.Names(), (Names{L"B", L"C"}));
    EXPECT_FALSE(IsDragging());
    EXPECT_NE(GetCapture(), tree.Window());
    EXPECT_EQ(marks, (std::vector<Mark>{{0, nullptr}}));
    ForgetPositions(3);
    Move(tree.Middle(tree.Item(L"C")));
    Release(tree.Middle(tree.Item(L"C")));
    EXPECT_EQ(registry.Get(KeyOf(1), L"Position"), TestSupport::DwordValue(900)) << "nothing is dropped";
    EXPECT_EQ(marks.size(), 1u) << "nothing is marked";
    Drag(tree.Item(L"B"), tree.Item(L"C"));
    EXPECT_EQ(tree.Names(), (Names{L"C", L"B"}));
}

TEST_F(DragTest, RemovingThePressedPresetLetsNoDragBegin) {
    OpenWith({L"A", L"B", L"C"});
    Press(tree.Middle(tree.Item(L"A")));
    SendMessageW(window, WM_COMMAND, MAKEWPARAM(VK_DELETE, 1), 0);
    Move(tree.Middle(tree.Item(L"C")));
    EXPECT_FALSE(IsDragging());
    EXPECT_NE(GetCapture(), tree.Window());
}

TEST_F(DragTest, RemovingAnotherPresetEndsNoDrag) {
    OpenWith({L"A", L"B", L"C"});
    PressAndPull(tree.Middle(tree.Item(L"B")));
    ASSERT_TRUE(IsDragging());
    SendMessageW(window, WM_COMMAND, MAKEWPARAM(VK_DELETE, 1), 0);
    EXPECT_TRUE(IsDragging());
    Release(tree.Middle(tree.Item(L"C")));
    EXPECT_EQ(tree.Names(), (Names{L"C", L"B"}));
}

TEST_F(DragTest, LosingTheMouseEndsTheDrag) {
    OpenWith({L"A", L"B"});
    const POINT start = tree.Middle(tree.Item(L"A"));
    const POINT target = tree.Middle(tree.Item(L"B"));
    Press(start);
    Move(target);
    ASSERT_TRUE(IsDragging());
    marks.clear();
    SetCapture(window);
    EXPECT_FALSE(IsDragging());
    EXPECT_EQ(marks, (std::vector<Mark>{{0, nullptr}}));
    ForgetPositions(2);
    Move(target);
    Release(target);
    EXPECT_EQ(GetCapture(), window) << "the mouse stays with the window that took it";
    EXPECT_TRUE(NothingSaved(2));
    ReleaseCapture();
    Drag(tree.Item(L"A"), tree.Item(L"B"));
    EXPECT_EQ(tree.Names(), (Names{L"B", L"A"}));
}

TEST_F(DragTest, DestructionEndsADrag) {
    OpenWith({L"A", L"B"});
    const POINT start = tree.Middle(tree.Item(L"A"));
    Press(start);
    Move({start.x, start.y + GetSystemMetrics(SM_CYDRAG)});
    ASSERT_TRUE(IsDragging());
    DestroyWindow(window);
    controller.reset();
    EXPECT_FALSE(IsDragging());
}

}  // namespace
