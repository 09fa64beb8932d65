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

}  // namespace
