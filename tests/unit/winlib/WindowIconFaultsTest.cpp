#include "winlib/WindowIcon.h"

#include <gtest/gtest.h>

#include "FakeWin.h"
#include "FakeWindows.h"

namespace {

constexpr int IconId = 5;

struct WindowIcon : testing::Test {
    ~WindowIcon() override { DestroyWindow(window); }

    const HWND window = FakeWin::CreatePlainWindow();
};

TEST_F(WindowIcon, HasTheSizesOfTheTaskbarAndOfTheCaption) {
    WinLib::WindowIcon icon;
    icon.Set(window, nullptr, IconId);
    const struct {
        WPARAM kind;
        int size;
    } rows[] = {{ICON_BIG, 32}, {ICON_SMALL, 16}};
    for (const auto& row : rows) {
        const std::optional<FakeWin::Icon> given = FakeWin::IconOf(window, row.kind);
        ASSERT_TRUE(given.has_value()) << row.kind;
        EXPECT_EQ(given->id, IconId);
        EXPECT_EQ(given->width, row.size);
        EXPECT_EQ(given->height, row.size);
    }
}

TEST_F(WindowIcon, IsReleased) {
    {
        WinLib::WindowIcon icon;
        icon.Set(window, nullptr, IconId);
        icon.Set(window, nullptr, IconId);
        EXPECT_EQ(FakeWin::LeftOpen(), "icon 5\nicon 5\n");
    }
    EXPECT_EQ(FakeWin::LeftOpen(), "");
}

TEST_F(WindowIcon, ThatCannotBeLoadedIsNone) {
    FakeWin::FailNth(FakeWin::Call::LoadImageW, 2, ERROR_RESOURCE_NAME_NOT_FOUND);
    WinLib::WindowIcon icon;
    icon.Set(window, nullptr, IconId);
    EXPECT_TRUE(FakeWin::IconOf(window, ICON_BIG).has_value());
    EXPECT_FALSE(FakeWin::IconOf(window, ICON_SMALL).has_value());
}

}  // namespace
