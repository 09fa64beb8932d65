// The order in which Tab walks the pages: that in which they are read.

#include <gtest/gtest.h>

#include <algorithm>

#include "OpenPage.h"
#include "resources/resource.h"

using TestSupport::TestRegistry;

namespace {

// What Tab can reach on a page, in its order; also what is disabled or not the chosen radio button just now.
std::vector<HWND> TabStops(HWND page) {
    std::vector<HWND> controls;
    for (HWND child = GetWindow(page, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
        const bool isRadioButton = (SendMessageW(child, WM_GETDLGCODE, 0, 0) & DLGC_RADIOBUTTON) != 0;
        if (isRadioButton || (GetWindowLongPtrW(child, GWL_STYLE) & WS_TABSTOP) != 0)
            controls.push_back(child);
    }
    return controls;
}

std::vector<int> Ids(const std::vector<HWND>& controls) {
    std::vector<int> ids;
    for (const HWND control : controls)
        ids.push_back(GetDlgCtrlID(control));
    return ids;
}

// By lines from the top, and from left to right within a line.
std::vector<HWND> AsRead(std::vector<HWND> controls) {
    std::ranges::stable_sort(controls, {}, [](HWND control) {
        RECT place = {};
        GetWindowRect(control, &place);
        return std::pair(place.top, place.left);
    });
    return controls;
}

TEST(TabOrder, IsTheOrderOfReadingOnEveryPage) {
    for (const PageKind* const kind : AllPages) {
        SCOPED_TRACE(kind->name);
        const TestRegistry registry;
        const OpenPage open(*kind);
        open.Resize(460, 400);
        const std::vector<HWND> stops = TabStops(open.window);
        EXPECT_GE(stops.size(), 3u);
        EXPECT_EQ(Ids(stops), Ids(AsRead(stops)));
    }
}

// The one that is first of two controls is drawn first, and the frame is drawn below what it holds.
TEST(TabOrder, BeginsWithTheFrame) {
    for (const PageKind* const kind : AllPages) {
        const TestRegistry registry;
        const OpenPage open(*kind);
        EXPECT_EQ(GetDlgCtrlID(GetWindow(open.window, GW_CHILD)), kind->group) << kind->name;
    }
}

// What is read to those who cannot see it is the text before a control that has none of its own.
TEST(TabOrder, CaptionsStandDirectlyBeforeWhatTheyName) {
    struct {
        const PageKind& kind;
        int caption;
        int control;
    } const rows[] = {
        {Kind::Display, IDC_DISPLAY_INDENT_CAPTION, IDC_DISPLAY_INDENT},
        {Kind::Display, IDC_DISPLAY_SIZE_CAPTION, IDC_DISPLAY_SIZE_STYLE},
        {Kind::Filter, IDC_FILTER_TYPE_CAPTION, IDC_FILTER_TYPE},
        {Kind::Filter, IDC_FILTER_EXCLUDED_CAPTION, IDC_FILTER_EXCLUDED},
        {Kind::Columns, IDC_COLUMNS_CAPTION, IDC_COLUMNS_TREE},
        {Kind::Sorting, IDC_SORTING_CAPTION, IDC_SORTING_TREE},
    };
    for (const auto& row : rows) {
        const TestRegistry registry;
        const OpenPage open(row.kind);
        EXPECT_EQ(GetWindow(open.Control(row.control), GW_HWNDPREV), open.Control(row.caption))
            << row.kind.name << " " << row.control;
    }
}

}  // namespace
