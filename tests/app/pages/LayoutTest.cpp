// How the pages lay their controls out: rows from the top, each as high as the resource drew it, with the
// gaps of the design between. Widths and heights of controls come from the font and are read, not known.

#include "OpenPage.h"

#include <gtest/gtest.h>

#include "pages/ManageController.h"
#include "resources/resource.h"
#include "winlib/ParentCoordinates.h"

using TestSupport::TestRegistry;

namespace {

constexpr int Width = 460;
constexpr int Height = 400;

enum class Fit { Left, Right, Wide };  // Wide reaches to the right margin

struct Row {
    int id;
    int gapAbove;
    int left;  // for Right the distance from the right edge
    Fit fit;
};

struct PageRow {
    const PageKind& page;
    std::vector<Row> rows;
};

const PageRow PlainPages[] = {
    {Kind::Format,
     {{IDC_FORMAT_CAPTION, 28, 20, Fit::Left},
      {IDC_FORMAT_TEXT, 8, 40, Fit::Left},
      {IDC_FORMAT_HTML, 8, 40, Fit::Left},
      {IDC_FORMAT_UTF8, 8 + 4 + 8, 20, Fit::Left}}},
    {Kind::Display,
     {{IDC_DISPLAY_STATISTICS, 28, 20, Fit::Left},
      {IDC_DISPLAY_HIDDEN, 8, 20, Fit::Left},
      {IDC_DISPLAY_SUBFOLDERS, 8, 20, Fit::Left},
      {IDC_DISPLAY_GROUPED, 8, 20, Fit::Left},
      {IDC_DISPLAY_INDENT_CAPTION, 8, 40, Fit::Left},
      {IDC_DISPLAY_INDENT, 8, 32, Fit::Left},
      {IDC_DISPLAY_SIZE_CAPTION, 8 + 4 + 8, 20, Fit::Left},
      {IDC_DISPLAY_SIZE_STYLE, 8, 20, Fit::Wide}}},
    {Kind::Saving,
     {{IDC_SAVING_TEMPORARY, 28, 20, Fit::Left},
      {IDC_SAVING_SAME_PATH, 8, 20, Fit::Left},
      {IDC_SAVING_CUSTOM, 8, 20, Fit::Left},
      {IDC_SAVING_PATH, 8, 40, Fit::Wide},
      {IDC_SAVING_BROWSE, 8, 20, Fit::Right},
      {IDC_SAVING_OVERWRITE, 8 + 4 + 8, 20, Fit::Left}}},
    {Kind::Opening,
     {{IDC_OPENING_DEFAULT, 28, 20, Fit::Left},
      {IDC_OPENING_NOTHING, 8, 20, Fit::Left},
      {IDC_OPENING_CUSTOM, 8, 20, Fit::Left},
      {IDC_OPENING_PATH, 8, 40, Fit::Wide},
      {IDC_OPENING_BROWSE, 8, 20, Fit::Right}}},
    {Kind::Filter,
     {{IDC_FILTER_TYPE_CAPTION, 28, 20, Fit::Left},
      {IDC_FILTER_TYPE, 8, 20, Fit::Wide},
      {IDC_FILTER_PATTERN, 8, 20, Fit::Wide},
      {IDC_FILTER_HINT, 8, 20, Fit::Left},
      {IDC_FILTER_EXCLUDED_CAPTION, 8 + 4 + 8, 20, Fit::Left},
      {IDC_FILTER_EXCLUDED, 8, 20, Fit::Wide},
      {IDC_FILTER_ADD, 8, 20, Fit::Right}}},
};

TEST(Layout, RowsStandBelowEachOther) {
    for (const PageRow& page : PlainPages) {
        const TestRegistry registry;
        const OpenPage open(page.page);
        open.Resize(Width, Height);
        LONG bottom = 0;
        for (const Row& row : page.rows) {
            SCOPED_TRACE(testing::Message() << page.page.name << " " << row.id);
            const RECT place = open.Place(row.id);
            EXPECT_EQ(place.top, bottom + row.gapAbove);
            if (row.fit == Fit::Right)
                EXPECT_EQ(place.right, Width - row.left);
            else
                EXPECT_EQ(place.left, row.left);
            if (row.fit == Fit::Wide)
                EXPECT_EQ(place.right, Width - 20);
            bottom = place.bottom;
        }
    }
}

TEST(Layout, IndentNumberFollowsItsCaptionAndTheTrackbarIsCentred) {
    const TestRegistry registry;
    const OpenPage open(Kind::Display);
    open.Resize(Width, Height);
    const RECT caption = open.Place(IDC_DISPLAY_INDENT_CAPTION);
    const RECT number = open.Place(IDC_DISPLAY_INDENT_VALUE);
    EXPECT_EQ(number.left, caption.right);
    EXPECT_EQ(number.top, caption.top);
    const RECT trackbar = open.Place(IDC_DISPLAY_INDENT);
    EXPECT_EQ(trackbar.left, 20 + 12);
    EXPECT_EQ(trackbar.right, Width - 20 - 12);
}

TEST(Layout, ListOfFoldersTakesTheRoom) {
    const TestRegistry registry;
    const OpenPage open(Kind::Filter);
    open.Resize(Width, Height);
    EXPECT_EQ(open.Place(IDC_FILTER_ADD).bottom, Height - 20);
    EXPECT_EQ(open.Place(IDC_FILTER_REMOVE).right, open.Place(IDC_FILTER_ADD).left - 8);
    EXPECT_EQ(open.Place(IDC_FILTER_REMOVE).top, open.Place(IDC_FILTER_ADD).top);
}

struct TreePage {
    const PageKind& page;
    int caption, tree, up, down, check;
};

TEST(Layout, TreeTakesTheRoomBesideItsButtons) {
    const TreePage pages[] = {{Kind::Columns, IDC_COLUMNS_CAPTION, IDC_COLUMNS_TREE, IDC_COLUMNS_UP,
                               IDC_COLUMNS_DOWN, IDC_COLUMNS_HEADERS},
                              {Kind::Sorting, IDC_SORTING_CAPTION, IDC_SORTING_TREE, IDC_SORTING_UP,
                               IDC_SORTING_DOWN, IDC_SORTING_NATURAL}};
    for (const TreePage& row : pages) {
        SCOPED_TRACE(row.page.name);
        const TestRegistry registry;
        const OpenPage open(row.page);
        open.Resize(Width, Height);
        const RECT caption = open.Place(row.caption);
        const RECT tree = open.Place(row.tree);
        const RECT up = open.Place(row.up);
        const RECT down = open.Place(row.down);
        const RECT check = open.Place(row.check);
        EXPECT_EQ(caption.left, 16);
        EXPECT_EQ(caption.top, 28);
        EXPECT_EQ(tree.left, 16);
        EXPECT_EQ(tree.top, caption.bottom + 8);
        EXPECT_EQ(tree.right, up.left - 8);
        EXPECT_EQ(up.right, Width - 12);
        EXPECT_EQ(down.left, up.left);
        EXPECT_EQ(down.top, up.bottom + 8);
        EXPECT_EQ(check.left, 16);
        EXPECT_EQ(check.top, tree.bottom + 8);
        EXPECT_EQ(check.bottom, Height - 16);
        const LONG above = up.top - caption.top;
        const LONG below = tree.bottom - down.bottom;
        EXPECT_LE(std::abs(above - below), 1);
    }
}

TEST(Layout, InstructionsFloatAboveTheMiddle) {
    HostWindow host;
    ManageController page;
    HWND window = nullptr;
    WinLib::CreateModeless(host.Application, window, page, IDD_MANAGE, host.Handle,
                           host.Application.Instance);
    const auto place = [window](int id) { return WinLib::RectInParent(GetDlgItem(window, id)); };
    const auto height = [&place](int id) { return place(id).bottom - place(id).top; };
    const LONG minimum = 28 + 3 * 8 + height(IDC_MANAGE_CREATE) + height(IDC_MANAGE_DUPLICATE) +
                         height(IDC_MANAGE_REARRANGE) + 8 + 8 + 8 + 20;
    constexpr LONG Extra = 100;
    MoveWindow(window, 0, 0, Width, static_cast<int>(minimum + Extra), TRUE);

    const RECT frame = place(IDC_MANAGE_GROUP);
    EXPECT_EQ(frame.right, Width);
    EXPECT_EQ(frame.bottom, minimum + Extra);
    // The texts get four fifths of the extra room, and of that two fifths lie above them.
    EXPECT_EQ(place(IDC_MANAGE_CREATE).top, 28 + Extra * 4 / 5 * 2 / 5 + 8);
    EXPECT_EQ(place(IDC_MANAGE_DUPLICATE).top, place(IDC_MANAGE_CREATE).bottom + 8);
    EXPECT_EQ(place(IDC_MANAGE_REARRANGE).top, place(IDC_MANAGE_DUPLICATE).bottom + 8);
    for (const int id : {IDC_MANAGE_CREATE, IDC_MANAGE_DUPLICATE, IDC_MANAGE_REARRANGE})
        EXPECT_LE(std::abs(place(id).left + place(id).right - Width), 1) << id;

    LRESULT result = 0;
    EXPECT_FALSE(page.OnMessage(WM_SIZE, SIZE_MINIMIZED, 0, result));
    DestroyWindow(window);
}

}  // namespace
