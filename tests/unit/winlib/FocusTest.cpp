#include "winlib/Focus.h"

#include <gtest/gtest.h>

#include "TestWindows.h"

namespace {

INT_PTR CALLBACK Procedure(HWND, UINT message, WPARAM, LPARAM) {
    return message == WM_INITDIALOG;
}

// A dialog whose first button has the focus.
class Focus : public testing::Test {
protected:
    Focus() {
        TestWindows::DefineDialog();
        dialog = CreateDialogParamW(nullptr, MAKEINTRESOURCEW(TestWindows::DialogId), nullptr, Procedure, 0);
        EXPECT_EQ(GetFocus(), Button(IDOK));
    }
    ~Focus() override { DestroyWindow(dialog); }

    HWND Button(int id) const { return GetDlgItem(dialog, id); }

    HWND dialog;
};

TEST_F(Focus, MovesToAControl) {
    WinLib::MoveFocus(Button(TestWindows::ButtonId));
    EXPECT_EQ(GetFocus(), Button(TestWindows::ButtonId));
}

TEST_F(Focus, GoesFromADisabledControlToTheNext) {
    WinLib::EnableControl(Button(IDOK), false, Button(IDCANCEL));
    EXPECT_FALSE(IsWindowEnabled(Button(IDOK)));
    EXPECT_EQ(GetFocus(), Button(IDCANCEL));
}

TEST_F(Focus, StaysWithAnyOtherControl) {
    WinLib::EnableControl(Button(IDCANCEL), false, Button(TestWindows::ButtonId));
    EXPECT_FALSE(IsWindowEnabled(Button(IDCANCEL)));
    EXPECT_EQ(GetFocus(), Button(IDOK));
}

TEST_F(Focus, StaysWhereItIsWhenAControlIsEnabled) {
    for (int i = 0; i < 2; ++i) {
        WinLib::EnableControl(Button(IDOK), true, Button(IDCANCEL));
        EXPECT_TRUE(IsWindowEnabled(Button(IDOK)));
        EXPECT_EQ(GetFocus(), Button(IDOK));
    }
    EnableWindow(Button(IDCANCEL), FALSE);
    WinLib::EnableControl(Button(IDCANCEL), true, Button(TestWindows::ButtonId));
    EXPECT_TRUE(IsWindowEnabled(Button(IDCANCEL)));
    EXPECT_EQ(GetFocus(), Button(IDOK));
}

}  // namespace
