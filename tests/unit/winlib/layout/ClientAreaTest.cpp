#include "winlib/layout/ClientArea.h"

#include <gtest/gtest.h>

#include "TestWindows.h"
#include "layout/FixedSizer.h"

namespace {

TEST(ClientArea, TheTreeLiesOnAllOfIt) {
    const HWND dialog = TestWindows::MakeWindow();
    FixedSizer root({0, 0, 10, 10});
    for (const SIZE size : {SIZE{300, 200}, SIZE{500, 100}}) {
        SetWindowPos(dialog, nullptr, 0, 0, size.cx, size.cy, SWP_NOMOVE | SWP_NOZORDER);
        RECT client = {};
        GetClientRect(dialog, &client);
        WinLib::Layout::ArrangeOnClient(root, dialog);
        EXPECT_EQ(root.CurrentRect, client);
    }
    DestroyWindow(dialog);
}

TEST(ClientArea, AMinimizedDialogIsNotArranged) {
    const HWND dialog = TestWindows::MakeWindow();
    FixedSizer root({0, 0, 10, 10});
    EXPECT_FALSE(WinLib::Layout::ArrangeOnSize(root, dialog, SIZE_MINIMIZED));
    EXPECT_EQ(root.CurrentRect, (RECT{0, 0, 10, 10}));
    EXPECT_TRUE(WinLib::Layout::ArrangeOnSize(root, dialog, SIZE_RESTORED));
    RECT client = {};
    GetClientRect(dialog, &client);
    EXPECT_EQ(root.CurrentRect, client);
    DestroyWindow(dialog);
}

TEST(ClientArea, TheOuterMinimumHasTheFrameAndTheMenu) {
    const HWND dialog = TestWindows::MakeWindow();
    FixedSizer root({5, 6, 305, 206});
    root.Measure();
    for (const bool hasMenu : {false, true}) {
        RECT outer = {0, 0, 300, 200};
        AdjustWindowRectEx(&outer, static_cast<DWORD>(GetWindowLongPtrW(dialog, GWL_STYLE)), hasMenu,
                           static_cast<DWORD>(GetWindowLongPtrW(dialog, GWL_EXSTYLE)));
        const SIZE size = WinLib::Layout::OuterMinimum(root, dialog, hasMenu);
        EXPECT_EQ(size.cx, outer.right - outer.left);
        EXPECT_EQ(size.cy, outer.bottom - outer.top);
    }
    DestroyWindow(dialog);
}

}  // namespace
