// The page "Display": grouping and indent, which depend on each other, and the size style.

#include "OpenPage.h"

#include <gtest/gtest.h>

#include "resources/resource.h"
#include "support/ui/FocusWatch.h"

using TestSupport::DwordValue;
using TestSupport::StringValue;
using TestSupport::TestRegistry;

namespace {

const std::wstring Display = PresetKey + L"\\Display";
constexpr int IndentControls[] = {IDC_DISPLAY_INDENT, IDC_DISPLAY_INDENT_CAPTION, IDC_DISPLAY_INDENT_VALUE};

int Position(const OpenPage& open) {
    return static_cast<int>(SendMessageW(open.Control(IDC_DISPLAY_INDENT), TBM_GETPOS, 0, 0));
}

TEST(DisplayPage, FlatListShowsTheBoxUncheckedAndTheIndentGray) {
    const TestRegistry registry;
    registry.SetDword(Display, L"ShowFlatStyle", 1);
    const OpenPage open(Kind::Display);
    EXPECT_FALSE(open.IsChecked(IDC_DISPLAY_GROUPED));
    for (const int id : IndentControls)
        EXPECT_FALSE(open.IsEnabled(id)) << id;
}

TEST(DisplayPage, GroupingEnablesTheIndent) {
    const TestRegistry registry;
    const OpenPage open(Kind::Display);
    for (const bool grouped : {false, true}) {
        open.Click(IDC_DISPLAY_GROUPED);
        EXPECT_EQ(registry.Get(Display, L"ShowFlatStyle"), DwordValue(!grouped));
        for (const int id : IndentControls)
            EXPECT_EQ(open.IsEnabled(id), grouped) << id;
    }
}

TEST(DisplayPage, OtherBoxesLeaveTheIndentAlone) {
    const TestRegistry registry;
    registry.SetDword(Display, L"ShowFlatStyle", 1);
    const OpenPage open(Kind::Display);
    for (const int id : {IDC_DISPLAY_STATISTICS, IDC_DISPLAY_HIDDEN, IDC_DISPLAY_SUBFOLDERS})
        open.Click(id);
    for (const int id : IndentControls)
        EXPECT_FALSE(open.IsEnabled(id)) << id;
}

TEST(DisplayPage, TrackbarGoesFromZeroToForty) {
    const TestRegistry registry;
    const OpenPage open(Kind::Display);
    const HWND trackbar = open.Control(IDC_DISPLAY_INDENT);
    EXPECT_EQ(SendMessageW(trackbar, TBM_GETRANGEMIN, 0, 0), 0);
    EXPECT_EQ(SendMessageW(trackbar, TBM_GETRANGEMAX, 0, 0), 40);
}

TEST(DisplayPage, IndentIsShownAsTrackbarAndNumber) {
    for (const uint32_t stored : {0U, 1U, 7U, 40U}) {
        const TestRegistry registry;
        registry.SetDword(Display, L"IndentSize", stored);
        const OpenPage open(Kind::Display);
        EXPECT_EQ(Position(open), static_cast<int>(stored));
        EXPECT_EQ(open.Text(IDC_DISPLAY_INDENT_VALUE), std::to_wstring(stored));
        EXPECT_EQ(registry.Get(Display, L"IndentSize"), DwordValue(stored));
    }
}

TEST(DisplayPage, IndentBeyondTheTrackbarIsClampedAndStoredByOpening) {
    const TestRegistry registry;
    registry.SetDword(Display, L"IndentSize", 100);
    const OpenPage open(Kind::Display);
    EXPECT_EQ(Position(open), 40);
    EXPECT_EQ(open.Text(IDC_DISPLAY_INDENT_VALUE), L"40");
    EXPECT_EQ(registry.Get(Display, L"IndentSize"), DwordValue(40));
}

TEST(DisplayPage, KeysOnTheTrackbarStoreTheIndent) {
    const TestRegistry registry;
    OpenPage open(Kind::Display);
    open.Focus(IDC_DISPLAY_INDENT);
    Ui::TypeKeys(open.pump, {VK_END});
    EXPECT_EQ(registry.Get(Display, L"IndentSize"), DwordValue(40));
    EXPECT_EQ(open.Text(IDC_DISPLAY_INDENT_VALUE), L"40");
    Ui::TypeKeys(open.pump, {VK_LEFT, VK_LEFT});
    EXPECT_EQ(registry.Get(Display, L"IndentSize"), DwordValue(38));
    EXPECT_EQ(open.Text(IDC_DISPLAY_INDENT_VALUE), L"38");
}

TEST(DisplayPage, DisabledTrackbarPassesTheFocusToTheBoxThatDisablesIt) {
    const TestRegistry registry;
    const OpenPage open(Kind::Display);
    const HWND box = open.Control(IDC_DISPLAY_GROUPED);
    open.Focus(IDC_DISPLAY_INDENT);
    const Ui::FocusWatch watch(open.Control(IDC_DISPLAY_INDENT));
    SendMessageW(box, BM_SETCHECK, BST_UNCHECKED, 0);
    SendMessageW(open.window, WM_COMMAND, MAKEWPARAM(IDC_DISPLAY_GROUPED, BN_CLICKED),
                 reinterpret_cast<LPARAM>(box));
    EXPECT_FALSE(open.IsEnabled(IDC_DISPLAY_INDENT));
    EXPECT_EQ(GetFocus(), box);
    EXPECT_EQ(watch.Lost(), (Ui::FocusLosses{{box, true, true}}));
}

TEST(DisplayPage, EveryScrollCodeStoresThePositionAndIsHandled) {
    const TestRegistry registry;
    const OpenPage open(Kind::Display);
    const HWND trackbar = open.Control(IDC_DISPLAY_INDENT);
    uint32_t position = 10;
    for (const WPARAM code : {TB_LINEUP, TB_LINEDOWN, TB_PAGEUP, TB_PAGEDOWN, TB_THUMBPOSITION, TB_THUMBTRACK,
                              TB_TOP, TB_BOTTOM, TB_ENDTRACK}) {
        SendMessageW(trackbar, TBM_SETPOS, TRUE, ++position);
        LRESULT result = 7;
        EXPECT_TRUE(open.page->OnMessage(WM_HSCROLL, code, reinterpret_cast<LPARAM>(trackbar), result))
            << code;
        EXPECT_EQ(registry.Get(Display, L"IndentSize"), DwordValue(position)) << code;
    }
}

TEST(DisplayPage, ScrollingOfAnotherControlIsNotHandled) {
    const TestRegistry registry;
    const OpenPage open(Kind::Display);
    LRESULT result = 0;
    EXPECT_FALSE(open.page->OnMessage(WM_HSCROLL, TB_LINEUP, 0, result));
}

struct SizeStyleRow {
    const wchar_t* stored;
    const wchar_t* label;
};

const SizeStyleRow SizeStyles[] = {
    {L"Dynamic", L"Dynamic (x.x Bytes/KiB/MiB/GiB/TiB)"},
    {L"Dynamic0", L"Dynamic (x Bytes/KiB/MiB/GiB/TiB)"},
    {L"Bytes", L"Bytes (x Bytes)"},
    {L"KibiBytes", L"KiB (x.x KiB)"},
    {L"MebiBytes", L"MiB (x.x MiB)"},
    {L"GibiBytes", L"GiB (x.x GiB)"},
    {L"TebiBytes", L"TiB (x.x TiB)"},
};

TEST(DisplayPage, StoredSizeStyleIsChosen) {
    for (int i = 0; i < static_cast<int>(std::size(SizeStyles)); ++i) {
        SCOPED_TRACE(i);
        const TestRegistry registry;
        registry.SetString(Display, L"SizeStyle", SizeStyles[i].stored);
        const OpenPage open(Kind::Display);
        ASSERT_EQ(open.Entries(IDC_DISPLAY_SIZE_STYLE).size(), std::size(SizeStyles));
        EXPECT_EQ(open.Entries(IDC_DISPLAY_SIZE_STYLE)[static_cast<size_t>(i)], SizeStyles[i].label);
        EXPECT_EQ(open.Entry(IDC_DISPLAY_SIZE_STYLE), i);
    }
}

TEST(DisplayPage, ChosenSizeStyleIsStored) {
    const TestRegistry registry;
    OpenPage open(Kind::Display);
    for (int i = static_cast<int>(std::size(SizeStyles)) - 1; i >= 0; i--) {
        open.Choose(IDC_DISPLAY_SIZE_STYLE, i);
        EXPECT_EQ(registry.Get(Display, L"SizeStyle"), StringValue(SizeStyles[i].stored)) << i;
    }
}

TEST(DisplayPage, NoChoiceStoresNoSizeStyle) {
    const TestRegistry registry;
    registry.SetString(Display, L"SizeStyle", L"MebiBytes");
    const OpenPage open(Kind::Display);
    const HWND combo = open.Control(IDC_DISPLAY_SIZE_STYLE);
    SendMessageW(combo, CB_SETCURSEL, static_cast<WPARAM>(-1), 0);
    SendMessageW(open.window, WM_COMMAND, MAKEWPARAM(IDC_DISPLAY_SIZE_STYLE, CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(combo));
    EXPECT_EQ(registry.Get(Display, L"SizeStyle"), StringValue(L"MebiBytes"));
}

}  // namespace
