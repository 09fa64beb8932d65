// The real dialog: its template control by control, and a person at the keyboard and the mouse.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "DrivenProgress.h"
#include "resources/resource.h"
#include "support/ui/DialogTemplate.h"
#include "support/ui/FocusWatch.h"
#include "support/ui/Input.h"
#include "winlib/WindowText.h"

using WinLib::GetWindowText;

namespace {

struct Control {
    int id;
    const wchar_t* className;
    int x, y, cx, cy;
    const wchar_t* text;
    DWORD style;  // all of it but WS_CHILD and WS_VISIBLE, which each control has
};

// In the order of the template, which is the order from the top down.
const Control Controls[] = {
    {1119, L"BUTTON", 132, 55, 70, 16, L"Cancel", BS_PUSHBUTTON | WS_TABSTOP},
    {3, L"BUTTON", 48, 55, 70, 16, L"Background", BS_PUSHBUTTON | WS_TABSTOP},
    {1108, L"STATIC", 6, 6, 252, 8, L"###", WS_GROUP},
    {1109, L"STATIC", 6, 18, 252, 8, L"###", SS_NOPREFIX | SS_PATHELLIPSIS},
    {1110, L"MSCTLS_PROGRESS32", 24, 42, 180, 14, L"", PBS_MARQUEE | WS_BORDER},
    {1107, L"MSCTLS_PROGRESS32", 12, 36, 180, 14, L"", WS_BORDER},
    {-1, L"STATIC", 270, 9, 20, 20, L"#116", SS_ICON},
};

TEST(ProgressTemplate, IsDrawnAsDesigned) {
    const Ui::DialogTemplate dialog = Ui::ReadDialogTemplate(150);
    EXPECT_EQ(dialog.caption, L"###");
    EXPECT_EQ(dialog.cx, 303);
    EXPECT_EQ(dialog.cy, 85);
    EXPECT_EQ(dialog.pointSize, 8);
    EXPECT_EQ(dialog.typeface, L"MS Shell Dlg");
    EXPECT_EQ(dialog.style,
              static_cast<DWORD>(DS_SHELLFONT | DS_CENTER | WS_POPUP | WS_CAPTION | WS_THICKFRAME));
    EXPECT_EQ(dialog.exStyle, 0U);
}

TEST(ProgressTemplate, HasTheseControlsFromTheTopDown) {
    const Ui::DialogTemplate dialog = Ui::ReadDialogTemplate(150);
    ASSERT_EQ(dialog.items.size(), std::size(Controls));
    for (size_t i = 0; i < std::size(Controls); ++i) {
        const Control& expected = Controls[i];
        const Ui::TemplateItem& item = dialog.items[i];
        SCOPED_TRACE(expected.id);
        EXPECT_EQ(item.id, expected.id);
        EXPECT_EQ(item.className, expected.className);
        EXPECT_EQ(item.x, expected.x);
        EXPECT_EQ(item.y, expected.y);
        EXPECT_EQ(item.cx, expected.cx);
        EXPECT_EQ(item.cy, expected.cy);
        EXPECT_EQ(item.text, expected.text);
        EXPECT_EQ(item.style, expected.style | WS_CHILD | WS_VISIBLE);
        EXPECT_EQ(item.exStyle, 0U);
    }
}

TEST(ProgressTemplate, OnlyOneBarIsAMarquee) {
    for (const Ui::TemplateItem& item : Ui::ReadDialogTemplate(150).items)
        if (item.className == L"MSCTLS_PROGRESS32")
            EXPECT_EQ((item.style & PBS_MARQUEE) != 0, item.id == 1110);
}

// A push button is the default one by its style, from the template or later from the dialog manager.
TEST(ProgressTemplate, HasNoDefaultButton) {
    for (const Ui::TemplateItem& item : Ui::ReadDialogTemplate(150).items)
        if (item.className == L"BUTTON")
            EXPECT_EQ(item.style & BS_TYPEMASK, static_cast<DWORD>(BS_PUSHBUTTON)) << item.id;
}

class ProgressDialog : public testing::Test {
protected:
    RECT PlaceOf(HWND control) const {
        RECT rect = {};
        GetWindowRect(control, &rect);
        MapWindowPoints(HWND_DESKTOP, dialog.Handle, reinterpret_cast<POINT*>(&rect), 2);
        return rect;
    }

    SIZE Size() const {
        RECT rect = {};
        GetWindowRect(dialog.Handle, &rect);
        return {rect.right - rect.left, rect.bottom - rect.top};
    }

    LONG ClientWidth() const {
        RECT rect = {};
        GetClientRect(dialog.Handle, &rect);
        return rect.right;
    }

    void Resize(LONG width, LONG height) {
        SetWindowPos(dialog.Handle, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER);
    }

    // The relations that hold at every width.
    void ExpectLayout() const {
        const RECT status = PlaceOf(dialog.StatusLine);
        const RECT detail = PlaceOf(dialog.DetailLine);
        const RECT icon = PlaceOf(dialog.IconStatic);
        const RECT bar = PlaceOf(dialog.Bar);
        const RECT background = PlaceOf(dialog.BackgroundButton);
        const RECT cancel = PlaceOf(dialog.CancelButton);
        const LONG right = ClientWidth() - 16;

        EXPECT_EQ(status.left, 16);
        EXPECT_EQ(status.top, 16);
        EXPECT_EQ(detail.left, 16);
        EXPECT_EQ(detail.right, status.right);
        EXPECT_EQ(detail.top, status.bottom + 8);
        EXPECT_EQ(icon.right, right - 10);
        EXPECT_GE(icon.left, status.right);
        EXPECT_EQ(bar.left, 16);
        EXPECT_EQ(bar.right, right);
        const RECT marquee = PlaceOf(dialog.Marquee);
        EXPECT_TRUE(EqualRect(&bar, &marquee));
        EXPECT_GE(bar.top, detail.bottom);
        EXPECT_GE(background.top, bar.bottom);
        EXPECT_EQ(background.top, cancel.top);
        EXPECT_EQ(background.right + 8, cancel.left);
        EXPECT_EQ(cancel.right, right);
    }

    DrivenProgress dialog = DrivenProgress(L"Tamblewick");
};

TEST_F(ProgressDialog, OpensAtItsMinimumSizeInTheMiddleOfTheScreen) {
    dialog.Run([&] {
        EXPECT_TRUE(IsWindowVisible(dialog.Handle));
        RECT outer = dialog.RootSizer.MinimumRect;
        AdjustWindowRectEx(&outer, static_cast<DWORD>(GetWindowLongPtrW(dialog.Handle, GWL_STYLE)), FALSE,
                           static_cast<DWORD>(GetWindowLongPtrW(dialog.Handle, GWL_EXSTYLE)));
        EXPECT_EQ(Size().cx, outer.right - outer.left);
        EXPECT_EQ(Size().cy, outer.bottom - outer.top);
        ExpectLayout();

        // The template centres its own size.
        const Ui::DialogTemplate drawn = Ui::ReadDialogTemplate(IDD_PROGRESS);
        RECT whole = {0, 0, drawn.cx, drawn.cy};
        MapDialogRect(dialog.Handle, &whole);
        AdjustWindowRectEx(&whole, drawn.style, FALSE, drawn.exStyle);
        RECT screen = {};
        SystemParametersInfoW(SPI_GETWORKAREA, 0, &screen, 0);
        RECT place = {};
        GetWindowRect(dialog.Handle, &place);
        EXPECT_EQ(place.left, (screen.left + screen.right - (whole.right - whole.left)) / 2);
        EXPECT_EQ(place.top, (screen.top + screen.bottom - (whole.bottom - whole.top)) / 2);
    });
}

TEST_F(ProgressDialog, ShowsTheMarqueeAboveTheBar) {
    dialog.Run([&] {
        bool marqueeSeen = false;
        for (HWND child = GetWindow(dialog.Handle, GW_CHILD); child != nullptr && child != dialog.Bar;
             child = GetWindow(child, GW_HWNDNEXT))
            marqueeSeen = marqueeSeen || child == dialog.Marquee;
        EXPECT_TRUE(marqueeSeen);
        EXPECT_TRUE(IsWindowVisible(dialog.Marquee));
        EXPECT_TRUE(IsWindowVisible(dialog.Bar));
    });
}

TEST_F(ProgressDialog, GivesThePlainBarItsRange) {
    dialog.Run([&] {
        EXPECT_EQ(SendMessageW(dialog.Bar, PBM_GETRANGE, TRUE, 0), 0);
        EXPECT_EQ(SendMessageW(dialog.Bar, PBM_GETRANGE, FALSE, 0), 100);
    });
}

TEST_F(ProgressDialog, ShowsTheProgramsIcon) {
    dialog.Run([&] { EXPECT_NE(SendMessageW(dialog.IconStatic, STM_GETICON, 0, 0), 0); });
}

// The width of an icon.
LONG WidthOf(LRESULT icon) {
    ICONINFO info = {};
    BITMAP bitmap = {};
    GetIconInfo(reinterpret_cast<HICON>(icon), &info);
    GetObjectW(info.hbmMask, sizeof(bitmap), &bitmap);
    DeleteObject(info.hbmMask);
    DeleteObject(info.hbmColor);
    return bitmap.bmWidth;
}

// The taskbar shows it when there is no owner.
TEST_F(ProgressDialog, HasTheProgramsIconInBothSizes) {
    dialog.Run([&] {
        EXPECT_EQ(WidthOf(SendMessageW(dialog.Handle, WM_GETICON, ICON_BIG, 0)), GetSystemMetrics(SM_CXICON));
        EXPECT_EQ(WidthOf(SendMessageW(dialog.Handle, WM_GETICON, ICON_SMALL, 0)),
                  GetSystemMetrics(SM_CXSMICON));
    });
}

TEST_F(ProgressDialog, LeavesTheFocusToTheDialogManager) {
    dialog.Run([&] { EXPECT_EQ(GetFocus(), dialog.CancelButton); });
}

TEST_F(ProgressDialog, TheMousePressesItsButtons) {
    EXPECT_EQ(dialog.Run([&] {
        Ui::Click(dialog.CancelButton);
        EXPECT_EQ(GetWindowText(dialog.StatusLine), L"Cancelling...");
        EXPECT_FALSE(IsWindowEnabled(dialog.CancelButton));
        SetWindowTextW(dialog.StatusLine, L"untouched");
        Ui::Click(dialog.CancelButton);
        EXPECT_EQ(GetWindowText(dialog.StatusLine), L"untouched");
    }),
              DrivenProgress::StaysOpen);
    EXPECT_TRUE(dialog.IsCancelled());

    EXPECT_EQ(dialog.Run([&] { Ui::Click(dialog.BackgroundButton); }), 0);
}

TEST_F(ProgressDialog, CancelByKeyboardMakesBackgroundTheDefaultButton) {
    EXPECT_EQ(dialog.Run([&] {
        Ui::MessagePump pump(dialog.Handle);
        const Ui::FocusWatch watch(dialog.CancelButton);
        Ui::TypeKeys(pump, {VK_SPACE});
        EXPECT_TRUE(dialog.IsCancelled());
        EXPECT_EQ(GetFocus(), dialog.BackgroundButton);
        EXPECT_EQ(watch.Lost(), (Ui::FocusLosses{{dialog.BackgroundButton, true, true}}));
        EXPECT_EQ(GetWindowLongPtrW(dialog.BackgroundButton, GWL_STYLE) & BS_TYPEMASK, BS_DEFPUSHBUTTON);
        Ui::TypeKeys(pump, {VK_RETURN});
    }),
              0);
}

TEST_F(ProgressDialog, EscAndAltF4LeaveItOpen) {
    EXPECT_EQ(dialog.Run([&] {
        Ui::MessagePump pump(dialog.Handle);
        Ui::TypeKeys(pump, {VK_ESCAPE});
        Ui::TypeKeys(pump, {VK_F4}, {VK_MENU});
        EXPECT_TRUE(IsWindowVisible(dialog.Handle));
    }),
              DrivenProgress::StaysOpen);
    EXPECT_FALSE(dialog.IsCancelled());
}

TEST_F(ProgressDialog, EnterLeavesItOpen) {
    EXPECT_EQ(dialog.Run([&] {
        Ui::MessagePump pump(dialog.Handle);
        Ui::TypeKeys(pump, {VK_RETURN});
        EXPECT_TRUE(IsWindowVisible(dialog.Handle));
    }),
              DrivenProgress::StaysOpen);
    EXPECT_FALSE(dialog.IsCancelled());
}

TEST_F(ProgressDialog, WidensUpToThreeTimesAndGrowsNoHigher) {
    dialog.Run([&] {
        const SIZE minimum = Size();
        const LONG lines = PlaceOf(dialog.StatusLine).right;
        const LONG bars = PlaceOf(dialog.Marquee).right;

        Resize(minimum.cx + 111, minimum.cy);
        EXPECT_EQ(Size().cx, minimum.cx + 111);
        EXPECT_EQ(PlaceOf(dialog.StatusLine).right, lines + 111);
        EXPECT_EQ(PlaceOf(dialog.DetailLine).right, lines + 111);
        EXPECT_EQ(PlaceOf(dialog.Marquee).right, bars + 111);
        ExpectLayout();

        MINMAXINFO info = {};
        SendMessageW(dialog.Handle, WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&info));
        EXPECT_EQ(info.ptMinTrackSize.x, minimum.cx);
        EXPECT_EQ(info.ptMinTrackSize.y, minimum.cy);
        EXPECT_EQ(info.ptMaxTrackSize.x, 3 * minimum.cx);
        EXPECT_EQ(info.ptMaxTrackSize.y, minimum.cy);
    });
}

// Dragging asks for the limits; so does the system when a window with a sizing border is resized.
TEST_F(ProgressDialog, KeepsWithinItsLimitsWhenResized) {
    dialog.Run([&] {
        const SIZE minimum = Size();
        Resize(10, 10);
        EXPECT_EQ(Size().cx, minimum.cx);
        EXPECT_EQ(Size().cy, minimum.cy);
        Resize(3 * minimum.cx, 2 * minimum.cy);
        EXPECT_EQ(Size().cy, minimum.cy);
        ExpectLayout();
    });
}

// How far to the right a control draws anything, in pixels from its left edge.
LONG DrawnWidth(HWND control) {
    RECT client = {};
    GetClientRect(control, &client);
    BITMAPINFO format = {};
    format.bmiHeader = {sizeof(BITMAPINFOHEADER), client.right, -client.bottom, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    const HDC context = CreateCompatibleDC(nullptr);
    void* bits = nullptr;
    const HBITMAP bitmap = CreateDIBSection(context, &format, DIB_RGB_COLORS, &bits, nullptr, 0);
    const HGDIOBJ before = SelectObject(context, bitmap);
    SendMessageW(control, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(context), PRF_CLIENT);
    GdiFlush();
    const auto* const pixels = static_cast<const uint32_t*>(bits);
    LONG width = 0;
    for (LONG i = 0; i < client.right * client.bottom; ++i)
        if (pixels[i] != pixels[client.right * client.bottom - 1])
            width = std::max(width, i % client.right + 1);
    SelectObject(context, before);
    DeleteObject(bitmap);
    DeleteDC(context);
    return width;
}

// A line that is wrapped shows the first words only.
TEST_F(ProgressDialog, ALongPathLosesItsMiddleAndNotItsEnd) {
    dialog.Run([&] {
        RECT line = {};
        GetClientRect(dialog.DetailLine, &line);
        dialog.Report(L"Scanning folders...", L"C:\\long two");
        const LONG first = DrawnWidth(dialog.DetailLine);
        EXPECT_GT(first, 0);
        EXPECT_LT(first, line.right / 2);
        dialog.Report(L"Scanning folders...",
                      L"C:\\long two\\" + std::wstring(100, L'x') + L"\\Program Files\\and more");
        EXPECT_GT(DrawnWidth(dialog.DetailLine), line.right * 3 / 4);
    });
}

TEST_F(ProgressDialog, AVeryLongPathIsCut) {
    dialog.Run([&] {
        const SIZE size = Size();
        const RECT line = PlaceOf(dialog.DetailLine);
        const std::wstring path = L"C:\\" + std::wstring(2000, L'x') + L" & " + std::wstring(2000, L'y');
        dialog.Report(L"Scanning folders...", path);
        EXPECT_EQ(GetWindowText(dialog.DetailLine), path);
        EXPECT_EQ(Size().cx, size.cx);
        EXPECT_EQ(Size().cy, size.cy);
        const RECT after = PlaceOf(dialog.DetailLine);
        EXPECT_TRUE(EqualRect(&after, &line));
    });
}

}  // namespace
