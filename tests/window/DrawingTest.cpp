// What is on the screen: the windows draw on a real display and are read back as pixels.

#include <gtest/gtest.h>

#include "progress/ProgressController.h"
#include "support/ui/HostWindow.h"
#include "support/ui/MainWindowTest.h"
#include "support/ui/Picture.h"
#include "winlib/controls/HyperLinkCtrl.h"
#include "winlib/layout/Window.h"

using WinLib::Layout::Alignment;

namespace {

void DrawWhatIsLeft(HWND window) {
    RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

// The window as it has been drawn, and as it is drawn from the ground up.
Ui::Picture Drawn(HWND window) {
    DrawWhatIsLeft(window);
    return Ui::OfClient(window);
}

Ui::Picture DrawnAgain(HWND window) {
    RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
    return Drawn(window);
}

void ExpectNoTraces(HWND window) {
    const Ui::Picture drawn = Drawn(window);
    EXPECT_TRUE(drawn == DrawnAgain(window));
}

// Makes a window larger than its smallest size by this much.
void Widen(HWND window, const SIZE& extra) {
    MINMAXINFO limits = {};
    SendMessageW(window, WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&limits));
    SetWindowPos(window, nullptr, 0, 0, limits.ptMinTrackSize.x + extra.cx,
                 limits.ptMinTrackSize.y + extra.cy, SWP_NOMOVE | SWP_NOZORDER);
}

class DrawingTest : public MainWindowTest {
protected:
    // Opens the window with a preset whose items can be selected, and lets the display take part.
    void OpenOnDisplay() {
        Store({L"A"});
        Open();
        RunLoopUntil([this] { return Ui::OfClient(window).Count(GetSysColor(COLOR_BTNFACE)) > 0; },
                     "the window on the display");
    }

    // The preset's item and its children, each of which shows another page.
    std::vector<HTREEITEM> Items() const {
        std::vector<HTREEITEM> items = {tree.Item(L"A")};
        for (HTREEITEM child = tree.Related(items.front(), TVGN_CHILD); child != nullptr;
             child = tree.Related(child, TVGN_NEXT))
            items.push_back(child);
        return items;
    }

    static LONG LeftOf(HWND control) {
        RECT place = {};
        GetWindowRect(control, &place);
        return place.left;
    }

    void SendToTree(UINT message, POINT point, WPARAM keys) const {
        SendMessageW(tree.Window(), message, keys, MAKELPARAM(point.x, point.y));
    }
};

TEST_F(DrawingTest, TheSplitterLeavesNothingBehind) {
    OpenOnDisplay();
    Widen(window, {100, 0});
    const HWND splitter = Control(IDC_MAIN_SPLITTER);
    for (const HTREEITEM item : Items()) {
        tree.Select(item);
        SCOPED_TRACE(VisiblePage());
        DrawWhatIsLeft(window);
        SendMessageW(splitter, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(2, 20));
        for (const int step : {9, 17, 40, -12, -60, 25}) {
            const LONG before = LeftOf(splitter);
            SendMessageW(splitter, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(2 + step, 20));
            EXPECT_NE(LeftOf(splitter), before);
            ExpectNoTraces(window);
        }
        SendMessageW(splitter, WM_LBUTTONUP, 0, MAKELPARAM(2, 20));
    }
}

TEST_F(DrawingTest, SizingLeavesNothingBehind) {
    OpenOnDisplay();
    for (const HTREEITEM item : Items()) {
        tree.Select(item);
        SCOPED_TRACE(VisiblePage());
        for (const SIZE step : {SIZE{31, 0}, SIZE{0, 23}, SIZE{60, 60}, SIZE{13, 47}, SIZE{0, 0}}) {
            DrawWhatIsLeft(window);
            Widen(window, step);
            ExpectNoTraces(window);
        }
    }
}

TEST_F(DrawingTest, TheBarOfADragShowsInsideTheTreeOnly) {
    OpenOnDisplay();
    const auto blank = [this] { return Ui::OfClient(tree.Window()).Count(GetSysColor(COLOR_WINDOW)); };
    const RECT label = tree.Label(tree.Item(L"A"));
    const POINT start = {label.left + 1, label.top + 5};
    const POINT below = {label.left + 1, label.bottom + 30};
    DrawWhatIsLeft(window);
    const long long before = blank();
    constexpr long long Bar = 64 * 2;

    // The tree's own loop ends by the move, which comes out of the queue.
    PostMessageW(tree.Window(), WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(below.x, below.y));
    SendToTree(WM_LBUTTONDOWN, start, MK_LBUTTON);
    SendToTree(WM_MOUSEMOVE, below, MK_LBUTTON);
    EXPECT_EQ(blank(), before - Bar);
    SendToTree(WM_MOUSEMOVE, {-5, below.y}, MK_LBUTTON);
    EXPECT_EQ(blank(), before);
    SendToTree(WM_MOUSEMOVE, {below.x, below.y + 20}, MK_LBUTTON);
    EXPECT_EQ(blank(), before - Bar);
    SendToTree(WM_LBUTTONUP, {below.x, below.y + 20}, 0);
    EXPECT_EQ(blank(), before);
}

TEST(LayoutDrawing, AFrameThatGrowsLosesItsOldLines) {
    const HostWindow host;
    const HWND frame = host.Add(L"Button", L"Frame", BS_GROUPBOX, {20, 20, 120, 90});
    WinLib::Layout::Window sizer(frame, Alignment::Fill, Alignment::Fill);
    DrawWhatIsLeft(host.Handle);
    sizer.Arrange({20, 20, 220, 190});
    ExpectNoTraces(host.Handle);
}

// A parent that does not draw below its children leaves them out of its own redrawing, too.
TEST(LayoutDrawing, AFrameThatMovesOverATextShowsIt) {
    const HostWindow host;
    SetWindowLongPtrW(host.Handle, GWL_STYLE, GetWindowLongPtrW(host.Handle, GWL_STYLE) | WS_CLIPCHILDREN);
    const HWND frame = host.Add(L"Button", L"Frame", BS_GROUPBOX, {20, 20, 120, 90});
    host.Add(L"Static", L"Text", 0, {125, 40, 160, 60});
    WinLib::Layout::Window sizer(frame, Alignment::Fill, Alignment::Fill);
    DrawWhatIsLeft(host.Handle);
    sizer.Arrange({80, 20, 180, 90});
    ExpectNoTraces(host.Handle);
}

TEST(ProgressDrawing, SizingLeavesNothingBehind) {
    HostWindow host;
    ProgressController progress(L"Title");
    HWND window = nullptr;
    WinLib::CreateModeless(host.Application, window, progress, IDD_PROGRESS, host.Handle,
                           host.Application.Instance);
    ShowWindow(window, SW_SHOW);
    progress.Report(L"Listing", L"C:\\Folder");
    for (const SIZE step : {SIZE{31, 0}, SIZE{150, 0}, SIZE{60, 0}, SIZE{0, 0}}) {
        DrawWhatIsLeft(window);
        Widen(window, step);
        ExpectNoTraces(window);
    }
    DestroyWindow(window);
}

class LinkDrawingTest : public testing::Test {
protected:
    static constexpr COLORREF Blue = RGB(0, 0, 192);
    static constexpr COLORREF Red = RGB(255, 0, 0);

    // Draws the link on a red ground.
    Ui::Picture DrawLink() {
        const HDC dc = GetDC(window);
        const HBRUSH brush = CreateSolidBrush(Red);
        RECT client = {};
        GetClientRect(window, &client);
        FillRect(dc, &client, brush);
        DeleteObject(brush);
        ReleaseDC(window, dc);
        SendMessageW(window, WM_PAINT, 0, 0);
        return Ui::OfClient(window);
    }

    // Without soft edges, which would mix the two colours.
    static HFONT MakeFont() {
        LOGFONTW font = {};
        GetObjectW(GetStockObject(SYSTEM_FONT), sizeof(font), &font);
        font.lfQuality = NONANTIALIASED_QUALITY;
        return CreateFontIndirectW(&font);
    }

    HostWindow host;
    WinLib::UniqueHandle<HFONT> font{MakeFont()};
    HWND window = host.Add(L"Static", L"link", 0, {20, 20, 220, 60});
    WinLib::HyperLinkCtrl link;
};

TEST_F(LinkDrawingTest, IsBlueOnTheColourOfButtonsFromTheTopLeftCorner) {
    SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(font.get()), 0);
    WinLib::Attach(link, window);
    const Ui::Picture plain = DrawLink();
    const COLORREF ground = GetSysColor(COLOR_BTNFACE);
    const HDC dc = GetDC(window);
    const HGDIOBJ old = SelectObject(dc, font.get());
    SIZE text = {};
    GetTextExtentPoint32W(dc, L"link", 4, &text);
    SelectObject(dc, old);
    ReleaseDC(window, dc);
    EXPECT_GT(plain.Count(Blue), 0);
    EXPECT_GT(plain.Count(ground), plain.Count(Blue));
    EXPECT_EQ(plain.Count(Blue) + plain.Count(ground), text.cx * text.cy);
    EXPECT_EQ(plain.Count(Red), plain.width * plain.height - text.cx * text.cy);
    EXPECT_NE(plain.pixels.front(), Red);

    // Under the mouse it is underlined.
    link.Hovering = true;
    EXPECT_GE(DrawLink().Count(Blue), plain.Count(Blue) + text.cx / 2);
}

}  // namespace
