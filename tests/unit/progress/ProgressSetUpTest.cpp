// What the dialog does to its window and its controls before it shows, as the stand-in records it.
#include <gtest/gtest.h>

#include "DrivenProgress.h"
#include "FakeWin.h"
#include "FakeWindows.h"
#include "resources/resource.h"

#include <commctrl.h>

namespace {

TEST(ProgressSetUp, StartsTheMarqueeAlone) {
    DrivenProgress dialog(L"Tamblewick");
    dialog.Run([&] {
        for (const HWND bar : {dialog.Bar, dialog.Marquee}) {
            int started = 0;
            for (const FakeWin::Message& message : FakeWin::ControlMessages(bar)) {
                if (message.message != PBM_SETMARQUEE)
                    continue;
                ++started;
                EXPECT_EQ(message.wParam, static_cast<WPARAM>(TRUE));
                EXPECT_EQ(message.lParam, 0) << "the default period";
            }
            EXPECT_EQ(started, bar == dialog.Marquee ? 1 : 0);
        }
    });
}

TEST(ProgressSetUp, GivesThePlainBarItsRange) {
    DrivenProgress dialog(L"Tamblewick");
    dialog.Run([&] {
        const std::vector<FakeWin::Message> messages = FakeWin::ControlMessages(dialog.Bar);
        ASSERT_EQ(messages.size(), 2u);
        EXPECT_EQ(messages[0].message, static_cast<UINT>(PBM_SETRANGE32));
        EXPECT_EQ(messages[0].wParam, 0u);
        EXPECT_EQ(messages[0].lParam, 100);
        EXPECT_EQ(messages[1].message, static_cast<UINT>(PBM_SETPOS));
        EXPECT_EQ(messages[1].wParam, 0u);
    });
}

TEST(ProgressSetUp, HasTheProgramsIconInBothSizesAsLongAsItLives) {
    {
        DrivenProgress dialog(L"Tamblewick");
        dialog.Run([&] {
            for (const WPARAM kind : {WPARAM{ICON_BIG}, WPARAM{ICON_SMALL}}) {
                const std::optional<FakeWin::Icon> icon = FakeWin::IconOf(dialog.Handle, kind);
                ASSERT_TRUE(icon.has_value()) << kind;
                EXPECT_EQ(icon->id, IDI_PROGRAM);
            }
        });
        EXPECT_NE(FakeWin::LeftOpen(), "") << "a window must not outlive its icon";
    }
    EXPECT_EQ(FakeWin::LeftOpen(), "");
}

}  // namespace
