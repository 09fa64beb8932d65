// The splitter between two sides that have minimum widths.

#include "winlib/controls/SplitterCtrl.h"

#include <gtest/gtest.h>

#include "support/ui/HostWindow.h"
#include "winlib/ParentCoordinates.h"
#include "winlib/layout/Window.h"

using WinLib::Layout::Alignment;

namespace {

constexpr int LeftMinimum = 60;
constexpr int RightMinimum = 80;

class SplitterCtrlTest : public testing::Test {
protected:
    SplitterCtrlTest() {
        left.Arrange({0, 0, 150, 200});
        right.Arrange({160, 0, 400, 200});
        splitter.Cursor = LoadCursorW(nullptr, reinterpret_cast<LPCWSTR>(IDC_SIZEWE));
        splitter.LeftSizer = &left;
        splitter.RightSizer = &right;
        WinLib::Attach(splitter, splitterWindow);
    }

    ~SplitterCtrlTest() override { ReleaseCapture(); }

    LRESULT Send(UINT message, int x, WPARAM keys) const {
        return SendMessageW(splitterWindow, message, keys, MAKELPARAM(x, 100));
    }

    // To a place given in the host's coordinates, as the mouse does: relative to where the splitter is now.
    void MoveTo(int x, WPARAM keys = MK_LBUTTON) const {
        Send(WM_MOUSEMOVE, x - static_cast<int>(Place(splitterWindow).left), keys);
    }

    static RECT Place(HWND window) { return WinLib::RectInParent(window); }

    // Where the left side ends, the splitter lies, and the right side begins.
    std::vector<LONG> Borders() const {
        return {Place(leftWindow).right, Place(splitterWindow).left, Place(splitterWindow).right,
                Place(rightWindow).left};
    }

    HostWindow host;
    HWND leftWindow = host.Add(L"Edit", L"", 0, {0, 0, LeftMinimum, 200});
    HWND rightWindow = host.Add(L"Edit", L"", 0, {160, 0, 160 + RightMinimum, 200});
    HWND splitterWindow = host.Add(L"Static", L"", SS_OWNERDRAW, {150, 0, 160, 200});
    WinLib::Layout::Window left{leftWindow, Alignment::Fill, Alignment::Fill};
    WinLib::Layout::Window right{rightWindow, Alignment::Fill, Alignment::Fill};
    WinLib::SplitterCtrl splitter;
};

TEST_F(SplitterCtrlTest, AttachingLetsTheStaticHearTheMouse) {
    EXPECT_NE(GetWindowLongPtrW(splitterWindow, GWL_STYLE) & SS_NOTIFY, 0);
}

TEST_F(SplitterCtrlTest, DragMovesTheBorderBothWays) {
    Send(WM_LBUTTONDOWN, 5, MK_LBUTTON);
    EXPECT_EQ(GetCapture(), splitterWindow);
    MoveTo(155 + 40);
    EXPECT_EQ(Borders(), (std::vector<LONG>{190, 190, 200, 200}));
    MoveTo(155 - 30);
    EXPECT_EQ(Borders(), (std::vector<LONG>{120, 120, 130, 130}));
    Send(WM_LBUTTONUP, 5, 0);
    EXPECT_EQ(GetCapture(), nullptr);
    EXPECT_EQ(Borders(), (std::vector<LONG>{120, 120, 130, 130}));
    EXPECT_EQ(Place(leftWindow).left, 0);
    EXPECT_EQ(Place(rightWindow).right, 400);
    EXPECT_EQ(Place(splitterWindow).bottom, 200);
}

TEST_F(SplitterCtrlTest, RightSideKeepsItsMinimum) {
    Send(WM_LBUTTONDOWN, 5, MK_LBUTTON);
    for (const int x : {155 + 160, 155 + 161, 500, 30000}) {
        MoveTo(x);
        EXPECT_EQ(Borders(), (std::vector<LONG>{310, 310, 320, 320})) << x;
    }
    EXPECT_EQ(Place(rightWindow).right - Place(rightWindow).left, RightMinimum);
}

TEST_F(SplitterCtrlTest, LeftSideKeepsItsMinimum) {
    Send(WM_LBUTTONDOWN, 5, MK_LBUTTON);
    for (const int x : {155 - 90, 155 - 91, -500, -30000}) {
        MoveTo(x);
        EXPECT_EQ(Borders(), (std::vector<LONG>{60, 60, 70, 70})) << x;
    }
}

TEST_F(SplitterCtrlTest, SideAtOrBelowItsMinimumDoesNotShrink) {
    left.CurrentRect = {0, 0, 40, 200};
    right.CurrentRect = {160, 0, 160 + RightMinimum - 20, 200};
    Send(WM_LBUTTONDOWN, 5, MK_LBUTTON);
    const LONG before = Place(splitterWindow).left;
    MoveTo(155 + 50);
    EXPECT_EQ(Place(splitterWindow).left, before);
    MoveTo(155 - 50);
    EXPECT_EQ(Place(splitterWindow).left, before);
}

TEST_F(SplitterCtrlTest, SizesDoNotDriftWhenTheMouseGoesBeyondTheLimitAndBack) {
    Send(WM_LBUTTONDOWN, 5, MK_LBUTTON);
    MoveTo(2000);
    MoveTo(155);
    EXPECT_EQ(Borders(), (std::vector<LONG>{150, 150, 160, 160}));
}

TEST_F(SplitterCtrlTest, MoveWithoutButtonDoesNothingAndEndsNoDrag) {
    MoveTo(200);
    EXPECT_EQ(Borders(), (std::vector<LONG>{150, 150, 160, 160}));
    Send(WM_LBUTTONDOWN, 5, MK_LBUTTON);
    MoveTo(200, 0);
    EXPECT_EQ(Borders(), (std::vector<LONG>{150, 150, 160, 160}));
    MoveTo(155 + 10);
    EXPECT_EQ(Borders(), (std::vector<LONG>{160, 160, 170, 170}));
    Send(WM_LBUTTONUP, 5, 0);
    MoveTo(300);
    EXPECT_EQ(Borders(), (std::vector<LONG>{160, 160, 170, 170}));
}

TEST_F(SplitterCtrlTest, OnlyTheHorizontalPlaceCounts) {
    Send(WM_LBUTTONDOWN, 5, MK_LBUTTON);
    SendMessageW(splitterWindow, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(5, 190));
    EXPECT_EQ(Borders(), (std::vector<LONG>{150, 150, 160, 160}));
}

TEST_F(SplitterCtrlTest, ShowsItsCursor) {
    EXPECT_EQ(SendMessageW(splitterWindow, WM_SETCURSOR, reinterpret_cast<WPARAM>(splitterWindow),
                           MAKELPARAM(HTCLIENT, WM_MOUSEMOVE)),
              TRUE);
    EXPECT_EQ(GetCursor(), splitter.Cursor);
}

TEST_F(SplitterCtrlTest, SizeIsHandled) {
    LRESULT result = 0;
    EXPECT_TRUE(splitter.OnMessage(WM_SIZE, SIZE_RESTORED, 0, result));
}

}  // namespace
