// The window's sizes, its layout, and changes of the screen.

#include "support/ui/MainWindowTest.h"
#include "winlib/WindowText.h"

namespace {

class SizingTest : public MainWindowTest {
protected:
    // The rectangle of one of the window's children, in client coordinates of the window.
    RECT Place(HWND child) const {
        RECT rect = {};
        GetWindowRect(child, &rect);
        MapWindowPoints(nullptr, window, reinterpret_cast<POINT*>(&rect), 2);
        return rect;
    }
    RECT Place(int id) const { return Place(Control(id)); }

    RECT Client() const {
        RECT rect = {};
        GetClientRect(window, &rect);
        return rect;
    }

    RECT Outer() const {
        RECT rect = {};
        GetWindowRect(window, &rect);
        return rect;
    }

    MINMAXINFO Limits() const {
        MINMAXINFO info = {};
        SendMessageW(window, WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&info));
        return info;
    }

    void Resize(int width, int height) const {
        SetWindowPos(window, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER);
    }

    void ExpectLayout() const {
        const RECT client = Client();
        const RECT tree_ = Place(IDC_MAIN_TREE);
        const RECT splitter = Place(IDC_MAIN_SPLITTER);
        const RECT page = Place(Pages().front());
        const RECT close = Place(IDC_MAIN_CLOSE);
        const RECT bar = Place(IDC_MAIN_BUSY_BAR);
        const RECT create = Place(IDC_MAIN_CREATE_LIST);
        EXPECT_EQ(tree_.left, 10);
        EXPECT_EQ(tree_.top, 10);
        EXPECT_EQ(tree_.bottom, client.bottom - 10);
        EXPECT_EQ(splitter.left, tree_.right + 2);
        EXPECT_EQ(splitter.top, tree_.top);
        EXPECT_EQ(splitter.bottom, tree_.bottom);
        EXPECT_EQ(page.left, splitter.right + 2);
        EXPECT_EQ(page.top, 10);
        EXPECT_EQ(page.right, client.right - 10);
        EXPECT_EQ(page.bottom + 10, create.top);
        EXPECT_EQ(close.left, page.left);
        EXPECT_EQ(close.bottom, client.bottom - 10);
        EXPECT_EQ(bar.left, close.right + 10);
        EXPECT_EQ(bar.right, create.left - 10);
        EXPECT_EQ((bar.top + bar.bottom) / 2, (create.top + create.bottom) / 2);
        EXPECT_EQ(create.right, client.right - 10);
        EXPECT_EQ(create.bottom, client.bottom - 10);
    }
};

TEST_F(SizingTest, LayoutFollowsTheWindow) {
    Store({L"A"});
    Open();
    const MINMAXINFO limits = Limits();
    ExpectLayout();
    Resize(limits.ptMinTrackSize.x, limits.ptMinTrackSize.y);
    ExpectLayout();
    Resize(limits.ptMinTrackSize.x + 111, limits.ptMinTrackSize.y + 77);
    ExpectLayout();
}

TEST_F(SizingTest, TreeAndButtonsKeepTheSizeThatTheResourceGives) {
    Open();
    RECT units = {0, 0, 108, 184};
    MapDialogRect(window, &units);
    EXPECT_EQ(Place(IDC_MAIN_TREE).right - Place(IDC_MAIN_TREE).left, units.right);
    RECT button = {0, 0, 70, 16};
    MapDialogRect(window, &button);
    for (const int id : {IDC_MAIN_CLOSE, IDC_MAIN_CREATE_LIST}) {
        EXPECT_EQ(Place(id).right - Place(id).left, button.right);
        EXPECT_EQ(Place(id).bottom - Place(id).top, button.bottom);
    }
}

TEST_F(SizingTest, MinimumIsTheLayoutAsDrawnAndMaximumTwiceThat) {
    Open();
    const MINMAXINFO limits = Limits();
    EXPECT_EQ(limits.ptMaxTrackSize.x, 2 * limits.ptMinTrackSize.x);
    EXPECT_EQ(limits.ptMaxTrackSize.y, 2 * limits.ptMinTrackSize.y);
    Resize(10, 10);
    EXPECT_EQ(Outer().right - Outer().left, limits.ptMinTrackSize.x);
    EXPECT_EQ(Outer().bottom - Outer().top, limits.ptMinTrackSize.y);
    // At the minimum the tree has the height of the resource, or the page is what needs more.
    RECT units = {0, 0, 108, 184};
    MapDialogRect(window, &units);
    EXPECT_GE(Place(IDC_MAIN_TREE).bottom - Place(IDC_MAIN_TREE).top, units.bottom);
    Resize(9000, 9000);
    EXPECT_EQ(Outer().right - Outer().left, limits.ptMaxTrackSize.x);
    EXPECT_EQ(Outer().bottom - Outer().top, limits.ptMaxTrackSize.y);
}

// A page whose controls need more room than its template has loses the edges of its frame.
TEST_F(SizingTest, EveryFrameIsWholeInTheSmallestWindow) {
    Store({L"A"});
    Open();
    const MINMAXINFO limits = Limits();
    Resize(limits.ptMinTrackSize.x, limits.ptMinTrackSize.y);
    std::vector<int> groups = PageGroups;
    groups.push_back(IDC_MANAGE_GROUP);
    int seen = 0;
    for (HWND page = GetWindow(window, GW_CHILD); page != nullptr; page = GetWindow(page, GW_HWNDNEXT)) {
        for (const int group : groups) {
            const HWND frame = GetDlgItem(page, group);
            if (frame == nullptr)
                continue;
            seen++;
            const RECT whole = Place(page);
            const RECT place = Place(frame);
            EXPECT_TRUE(EqualRect(&place, &whole)) << group;
        }
    }
    EXPECT_EQ(seen, 8);
}

TEST_F(SizingTest, PresetsDoNotChangeTheMinimum) {
    Open();
    const POINT before = Limits().ptMinTrackSize;
    Command(IDM_TEMPLATE_FIRST);
    EXPECT_EQ(Limits().ptMinTrackSize.x, before.x);
    EXPECT_EQ(Limits().ptMinTrackSize.y, before.y);
}

TEST_F(SizingTest, SizingArrangesAndIsAnswered) {
    Store({L"A"});
    Open();
    const HWND create = Control(IDC_MAIN_CREATE_LIST);
    const RECT placed = Place(create);
    MoveWindow(create, 0, 0, 20, 20, FALSE);
    RECT rect = Outer();
    EXPECT_EQ(SendMessageW(window, WM_SIZING, WMSZ_RIGHT, reinterpret_cast<LPARAM>(&rect)), 1);
    EXPECT_EQ(Place(create).right, placed.right);
    EXPECT_EQ(Place(create).bottom, placed.bottom);
}

TEST_F(SizingTest, MinimizingArrangesNothing) {
    Open();
    const HWND create = Control(IDC_MAIN_CREATE_LIST);
    MoveWindow(create, 0, 0, 20, 20, FALSE);
    SendMessageW(window, WM_SIZE, SIZE_MINIMIZED, 0);
    EXPECT_EQ(Place(create).left, 0);
    SendMessageW(window, WM_SIZE, SIZE_RESTORED, 0);
    EXPECT_EQ(Place(create).right, Client().right - 10);
}

TEST_F(SizingTest, TheSplitterShiftsTheBorderUntilTheNextResize) {
    Store({L"A"});
    Open();
    const MINMAXINFO limits = Limits();
    Resize(limits.ptMinTrackSize.x + 100, limits.ptMinTrackSize.y);
    const HWND splitter = Control(IDC_MAIN_SPLITTER);
    const RECT tree_ = Place(IDC_MAIN_TREE);
    const RECT page = Place(Pages().front());
    SendMessageW(splitter, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(2, 20));
    SendMessageW(splitter, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(42, 20));
    SendMessageW(splitter, WM_LBUTTONUP, 0, MAKELPARAM(2, 20));
    EXPECT_EQ(Place(IDC_MAIN_TREE).right, tree_.right + 40);
    EXPECT_EQ(Place(Pages().front()).left, page.left + 40);
    EXPECT_EQ(Place(Pages().front()).right, page.right);
    Resize(limits.ptMinTrackSize.x + 101, limits.ptMinTrackSize.y);
    EXPECT_EQ(Place(IDC_MAIN_TREE).right, tree_.right);
}

TEST_F(SizingTest, TheSplitterShowsTheSizingCursor) {
    Open();
    const HWND splitter = Control(IDC_MAIN_SPLITTER);
    SendMessageW(splitter, WM_SETCURSOR, reinterpret_cast<WPARAM>(splitter),
                 MAKELPARAM(HTCLIENT, WM_MOUSEMOVE));
    EXPECT_EQ(GetCursor(), LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_SIZEWE)));
}

// How often windows that are watched have been erased.
int erases = 0;

LRESULT CALLBACK CountErases(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR) {
    if (message == WM_ERASEBKGND)
        ++erases;
    return DefSubclassProc(window, message, wParam, lParam);
}

BOOL CALLBACK WatchErases(HWND window, LPARAM) {
    return SetWindowSubclass(window, CountErases, 1, 0);
}

// Draws whatever is still to be drawn.
void Draw(HWND window) {
    RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

TEST_F(SizingTest, HiddenPagesOfANewPresetDrawNothingAgain) {
    Store({L"A"});
    Open();
    Draw(window);
    WatchErases(window, 0);
    erases = 0;
    Command(IDM_DUPLICATE);
    Draw(window);
    EXPECT_EQ(erases, 0);
}

TEST_F(SizingTest, NothingIsDrawnAgainWhereNothingMoves) {
    Store({L"A"});
    Open();
    Draw(window);
    WatchErases(window, 0);
    EnumChildWindows(window, WatchErases, 0);
    erases = 0;
    RECT rect = Outer();
    for (int i = 0; i < 5; ++i) {
        SendMessageW(window, WM_SIZING, WMSZ_RIGHT, reinterpret_cast<LPARAM>(&rect));
        Draw(window);
    }
    EXPECT_EQ(erases, 0);
    Resize(rect.right - rect.left + 10, rect.bottom - rect.top);
    Draw(window);
    EXPECT_GT(erases, 0);
}

// Windows that got WM_SYSCOLORCHANGE, in order.
std::vector<HWND> notified;

LRESULT CALLBACK Watch(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR) {
    if (message == WM_SYSCOLORCHANGE)
        notified.push_back(window);
    return DefSubclassProc(window, message, wParam, lParam);
}

TEST_F(SizingTest, NewColoursGoToTheTreeAndThenToEveryPage) {
    Store({L"A", L"B"});
    Open();
    std::vector<HWND> expected = Pages();
    expected.insert(expected.begin(), tree.Window());
    for (const HWND listener : expected)
        SetWindowSubclass(listener, Watch, 1, 0);
    notified.clear();
    SendMessageW(window, WM_SYSCOLORCHANGE, 0, 0);
    EXPECT_EQ(notified, expected);
    for (const HWND listener : expected)
        RemoveWindowSubclass(listener, Watch, 1);
}

TEST_F(SizingTest, AChangedScreenBringsTheWindowBack) {
    Open();
    RECT work = {};
    SystemParametersInfoW(SPI_GETWORKAREA, 0, &work, 0);
    const MINMAXINFO limits = Limits();
    Resize(limits.ptMinTrackSize.x, limits.ptMinTrackSize.y);
    const POINT size = limits.ptMinTrackSize;
    struct Row {
        int x, y, fittedX, fittedY;
    };
    const Row rows[] = {
        {work.left - 50, work.top - 60, work.left, work.top},
        {work.right - 20, work.top + 5, work.right - size.x, work.top + 5},
        {work.left + 5, work.bottom - 20, work.left + 5, work.bottom - size.y},
        {work.left + 5, work.top + 5, work.left + 5, work.top + 5},
        {-5000, 9000, work.left, work.bottom - size.y},
    };
    for (const Row& row : rows) {
        SetWindowPos(window, nullptr, row.x, row.y, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
        SendMessageW(window, WM_DISPLAYCHANGE, 32, MAKELPARAM(1024, 768));
        EXPECT_EQ(Outer().left, row.fittedX) << row.x << ", " << row.y;
        EXPECT_EQ(Outer().top, row.fittedY) << row.x << ", " << row.y;
        EXPECT_EQ(Outer().right - Outer().left, size.x);
        EXPECT_EQ(Outer().bottom - Outer().top, size.y);
    }
}

}  // namespace
