// The places of all controls, to the pixel: the stand-in's template has two pixels to the dialog unit.
#include <gtest/gtest.h>

#include <ostream>
#include <tuple>

#include "DrivenProgress.h"

inline bool operator==(const RECT& one, const RECT& other) {
    return std::tie(one.left, one.top, one.right, one.bottom) ==
           std::tie(other.left, other.top, other.right, other.bottom);
}

inline std::ostream& operator<<(std::ostream& out, const RECT& rect) {
    return out << rect.left << ", " << rect.top << ", " << rect.right << ", " << rect.bottom;
}

namespace {

// The minimum: the lines and the icon beside each other are the widest row, 504 + 40 + 10 pixels, and the
// rows are 40, 40 and 32 high with gaps of 12; 16 around.
constexpr LONG MinimumWidth = 586;
constexpr LONG MinimumHeight = 168;

RECT ClientRect(HWND window) {
    RECT rect = {};
    GetClientRect(window, &rect);
    return rect;
}

SIZE OuterSize(HWND window) {
    RECT rect = {};
    GetWindowRect(window, &rect);
    return {rect.right - rect.left, rect.bottom - rect.top};
}

RECT PlaceOf(HWND control) {
    RECT rect = {};
    GetWindowRect(control, &rect);
    POINT origin = {};
    ClientToScreen(GetParent(control), &origin);
    return {rect.left - origin.x, rect.top - origin.y, rect.right - origin.x, rect.bottom - origin.y};
}

void ExpectLayout(const DrivenProgress& dialog, LONG extra) {
    EXPECT_EQ(PlaceOf(dialog.StatusLine), (RECT{16, 16, 520 + extra, 32}));
    EXPECT_EQ(PlaceOf(dialog.DetailLine), (RECT{16, 40, 520 + extra, 56}));
    EXPECT_EQ(PlaceOf(dialog.IconStatic), (RECT{520 + extra, 16, 560 + extra, 56}));
    EXPECT_EQ(PlaceOf(dialog.Bar), (RECT{16, 74, 570 + extra, 102}));
    EXPECT_EQ(PlaceOf(dialog.Marquee), (RECT{16, 74, 570 + extra, 102}));
    EXPECT_EQ(PlaceOf(dialog.BackgroundButton), (RECT{282 + extra, 120, 422 + extra, 152}));
    EXPECT_EQ(PlaceOf(dialog.CancelButton), (RECT{430 + extra, 120, 570 + extra, 152}));
}

TEST(ProgressLayout, OpensAtItsMinimumSize) {
    DrivenProgress dialog(L"Tamblewick");
    dialog.Run([&] {
        // The spacer lies at the origin, so that the tree begins at minus its margins.
        EXPECT_EQ(dialog.RootSizer.MinimumRect, (RECT{-16, -16, MinimumWidth - 16, MinimumHeight - 16}));
        EXPECT_EQ(ClientRect(dialog.Handle), (RECT{0, 0, MinimumWidth, MinimumHeight}));
        ExpectLayout(dialog, 0);
    });
}

// The template centres its own size, 622 by 209 pixels with the frame, which is a little more than the
// minimum.
TEST(ProgressLayout, StaysWhereItsTemplateHasCentredIt) {
    DrivenProgress dialog(L"Tamblewick");
    dialog.Run([&] {
        RECT place = {};
        GetWindowRect(dialog.Handle, &place);
        EXPECT_EQ(place.left, (1024 - 622) / 2);
        EXPECT_EQ(place.top, (768 - 209) / 2);
    });
}

TEST(ProgressLayout, WidensLinesAndBarsAndMovesTheButtonsAsAGroup) {
    DrivenProgress dialog(L"Tamblewick");
    dialog.Run([&] {
        const SIZE size = OuterSize(dialog.Handle);
        SetWindowPos(dialog.Handle, nullptr, 0, 0, size.cx + 300, size.cy, SWP_NOMOVE | SWP_NOZORDER);
        ExpectLayout(dialog, 300);
        SetWindowPos(dialog.Handle, nullptr, 0, 0, size.cx, size.cy, SWP_NOMOVE | SWP_NOZORDER);
        ExpectLayout(dialog, 0);
    });
}

TEST(ProgressLayout, ArrangesOnSizingAndAnswersOne) {
    DrivenProgress dialog(L"Tamblewick");
    dialog.Run([&] {
        MoveWindow(dialog.Bar, 0, 0, 5, 5, FALSE);
        RECT dragged = {};
        LRESULT result = 0;
        EXPECT_TRUE(dialog.OnMessage(WM_SIZING, 2, reinterpret_cast<LPARAM>(&dragged), result));
        EXPECT_EQ(result, 1);
        // A bar that has become lower lies in the middle of its cell.
        EXPECT_EQ(PlaceOf(dialog.Bar), (RECT{16, 85, 570, 90}));
    });
}

TEST(ProgressLayout, IsNotArrangedWhenMinimized) {
    DrivenProgress dialog(L"Tamblewick");
    dialog.Run([&] {
        MoveWindow(dialog.Bar, 0, 0, 5, 5, FALSE);
        LRESULT result = 0;
        EXPECT_TRUE(dialog.OnMessage(WM_SIZE, SIZE_MINIMIZED, 0, result));
        EXPECT_EQ(result, 0);
        EXPECT_EQ(PlaceOf(dialog.Bar), (RECT{0, 0, 5, 5}));
        EXPECT_TRUE(dialog.OnMessage(WM_SIZE, SIZE_RESTORED, 0, result));
        EXPECT_EQ(result, 0);
        EXPECT_EQ(PlaceOf(dialog.Bar), (RECT{16, 85, 570, 90}));
    });
}

TEST(ProgressLayout, GrowsUpToThreeTimesItsWidthAndNoHigher) {
    DrivenProgress dialog(L"Tamblewick");
    dialog.Run([&] {
        const SIZE size = OuterSize(dialog.Handle);
        MINMAXINFO info = {};
        LRESULT result = 0;
        EXPECT_TRUE(dialog.OnMessage(WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&info), result));
        EXPECT_EQ(result, 0);
        EXPECT_EQ(info.ptMinTrackSize.x, size.cx);
        EXPECT_EQ(info.ptMinTrackSize.y, size.cy);
        EXPECT_EQ(info.ptMaxTrackSize.x, 3 * size.cx);
        EXPECT_EQ(info.ptMaxTrackSize.y, size.cy);
    });
}

}  // namespace
