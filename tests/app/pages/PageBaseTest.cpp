// What all pages do alike, beside the bound controls of BindingsTest.cpp.

#include "OpenPage.h"

#include <gtest/gtest.h>

#include <typeinfo>

#include "resources/resource.h"
#include "settings/MainSettings.h"

using TestSupport::TestRegistry;

namespace {

// Counts the colour messages that a window gets.
int colorMessages = 0;
WNDPROC behind = nullptr;

LRESULT CALLBACK CountColorMessages(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_SYSCOLORCHANGE && wParam == 0 && lParam == 0)
        colorMessages++;
    return CallWindowProcW(behind, window, message, wParam, lParam);
}

TEST(PageBase, FrameFillsThePageAtEverySize) {
    for (const PageKind* const kind : AllPages) {
        SCOPED_TRACE(kind->name);
        const TestRegistry registry;
        const OpenPage open(*kind);
        for (const SIZE size : {SIZE{360, 270}, SIZE{500, 400}}) {
            open.Resize(size.cx, size.cy);
            const RECT frame = open.Place(kind->group);
            EXPECT_EQ(frame.left, 0);
            EXPECT_EQ(frame.top, 0);
            EXPECT_EQ(frame.right, size.cx);
            EXPECT_EQ(frame.bottom, size.cy);
        }
    }
}

TEST(PageBase, EveryPageFitsTheCellOfTheSmallestMainWindow) {
    // The cell is at least as wide as "Close", the bar and "Create List..." below it, and as high as the tree
    // beside it less those buttons.
    for (const PageKind* const kind : AllPages) {
        SCOPED_TRACE(kind->name);
        const TestRegistry registry;
        const OpenPage open(*kind);
        RECT row = {70, 49, 70, 184};
        RECT button = {0, 0, 0, 16};
        MapDialogRect(open.window, &row);
        MapDialogRect(open.window, &button);
        const LONG width = row.left + row.right + MulDiv(49, row.left, 70) + 2 * 10;
        const LONG height = row.bottom - 10 - button.bottom;
        open.Resize(width, height);
        const RECT frame = open.Place(kind->group);
        EXPECT_EQ(frame.right, width);
        EXPECT_EQ(frame.bottom, height);
    }
}

TEST(PageBase, MinimizingArrangesNothing) {
    for (const PageKind* const kind : AllPages) {
        SCOPED_TRACE(kind->name);
        const TestRegistry registry;
        const OpenPage open(*kind);
        LRESULT result = 7;
        EXPECT_FALSE(open.page->OnMessage(WM_SIZE, SIZE_MINIMIZED, 0, result));
        result = 0;
        EXPECT_TRUE(open.page->OnMessage(WM_SIZE, SIZE_RESTORED, MAKELPARAM(10, 10), result));
        EXPECT_EQ(result, 0);
    }
}

TEST(PageBase, ColorChangeReachesTheThemedControlAndThePlatform) {
    const std::pair<const PageKind*, int> themed[] = {{&Kind::Display, IDC_DISPLAY_INDENT},
                                                      {&Kind::Filter, IDC_FILTER_EXCLUDED},
                                                      {&Kind::Columns, IDC_COLUMNS_TREE},
                                                      {&Kind::Sorting, IDC_SORTING_TREE}};
    for (const auto& [kind, id] : themed) {
        SCOPED_TRACE(kind->name);
        const TestRegistry registry;
        const OpenPage open(*kind);
        colorMessages = 0;
        behind = reinterpret_cast<WNDPROC>(SetWindowLongPtrW(open.Control(id), GWLP_WNDPROC,
                                                             reinterpret_cast<LONG_PTR>(CountColorMessages)));
        LRESULT result = 0;
        EXPECT_FALSE(open.page->OnMessage(WM_SYSCOLORCHANGE, 1, 2, result));
        EXPECT_EQ(result, 0);
        EXPECT_EQ(colorMessages, 1);
        SetWindowLongPtrW(open.Control(id), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(behind));
    }
}

TEST(PageBase, OkAndCancelDestroyTheWindow) {
    for (const PageKind* const kind : AllPages) {
        SCOPED_TRACE(kind->name);
        const TestRegistry registry;
        const OpenPage okay(*kind);
        okay.page->OnOk();
        EXPECT_FALSE(IsWindow(okay.window));
        const OpenPage cancelled(*kind);
        cancelled.page->OnCancel();
        EXPECT_FALSE(IsWindow(cancelled.window));
    }
}

TEST(PageBase, UnknownControlsAndEscAreNotHandled) {
    for (const PageKind* const kind : AllPages) {
        SCOPED_TRACE(kind->name);
        const TestRegistry registry;
        const OpenPage open(*kind);
        for (const WORD code : {WORD{BN_CLICKED}, WORD{CBN_SELCHANGE}, WORD{EN_CHANGE}})
            EXPECT_FALSE(open.page->OnControlCommand(4711, open.window, code)) << code;
        SendMessageW(open.window, WM_COMMAND, IDCANCEL, 0);
        EXPECT_TRUE(IsWindow(open.window));
    }
}

TEST(PageBase, TargetThatIsNoPresetIsABadCast) {
    for (const PageKind* const kind : AllPages) {
        SCOPED_TRACE(kind->name);
        MainSettings settings;
        const std::unique_ptr<PropertyController> page = kind->make(&settings);
        EXPECT_EQ(page->Target, &settings);
        EXPECT_THROW(page->Refresh(), std::bad_cast);
    }
}

TEST(PageBase, HiddenPageKeepsWhatItShows) {
    for (const PageKind* const kind : {&Kind::Format, &Kind::Display}) {
        const int id = kind == &Kind::Format ? IDC_FORMAT_UTF8 : IDC_DISPLAY_STATISTICS;
        SCOPED_TRACE(kind->name);
        const TestRegistry registry;
        const OpenPage open(*kind);
        const bool before = open.IsChecked(id);
        open.Click(id);
        ShowWindow(open.window, SW_HIDE);
        ShowWindow(open.window, SW_SHOW);
        EXPECT_EQ(open.IsChecked(id), !before);
    }
}

TEST(PageBase, TabWalksFromTopToBottomInTheOrderOfTheTemplate) {
    const TestRegistry registry;
    OpenPage open(Kind::Saving);
    open.Click(IDC_SAVING_CUSTOM);
    open.Focus(IDC_SAVING_CUSTOM);
    std::vector<int> walked;
    for (int i = 0; i < 3; ++i) {
        Ui::TypeKeys(open.pump, {VK_TAB});
        walked.push_back(GetDlgCtrlID(GetFocus()));
    }
    EXPECT_EQ(walked, (std::vector<int>{IDC_SAVING_PATH, IDC_SAVING_BROWSE, IDC_SAVING_OVERWRITE}));
}

}  // namespace
