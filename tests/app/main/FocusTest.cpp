// The keyboard focus: where the window starts, and that a control hands it on before it is hidden, disabled
// or destroyed.

#include "OtherWindow.h"
#include "support/ui/FocusWatch.h"
#include "support/ui/MainWindowTest.h"
#include "winlib/WindowText.h"

namespace {

class FocusTest : public MainWindowTest {
protected:
    // Presets A and B, with the cursor in the folder field of A's page Saving.
    void OpenInFieldOfA() {
        Store({L"A", L"B"});
        registry.SetString(KeyOf(0) + L"\\Saving", L"SaveLocation", L"Custom");
        registry.SetString(KeyOf(0) + L"\\Saving", L"CustomFolderPath", L"C:\\Lists");
        Open();
        fieldOfA = GetDlgItem(Pages()[5], IDC_SAVING_PATH);
        tree.Select(tree.Child(tree.Item(L"A"), L"Saving"));
        SetFocus(fieldOfA);
        ASSERT_EQ(GetFocus(), fieldOfA);
    }

    // Types what must not reach the field.
    void ExpectTreeTakesKeys() {
        RunLoop();
        EXPECT_EQ(GetFocus(), tree.Window());
        Type(L"x");
        EXPECT_EQ(WinLib::GetWindowText(fieldOfA), L"C:\\Lists");
    }

    HWND fieldOfA = nullptr;
};

TEST_F(FocusTest, AnEmptyWindowStartsOnTheTree) {
    Open();
    RunLoop();
    EXPECT_EQ(GetFocus(), tree.Window());
}

TEST_F(FocusTest, AWindowWithPresetsStartsOnCreateList) {
    Store({L"A"});
    Open();
    RunLoop();
    EXPECT_EQ(GetFocus(), Control(IDC_MAIN_CREATE_LIST));
}

TEST_F(FocusTest, APageHiddenByARightClickLosesIt) {
    OpenInFieldOfA();
    const POINT item = tree.Middle(tree.Item(L"B"));
    SendMessageW(tree.Window(), WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(item.x, item.y));
    PostMessageW(tree.Window(), WM_KEYDOWN, VK_ESCAPE, 0);
    SendMessageW(tree.Window(), WM_RBUTTONUP, 0, MAKELPARAM(item.x, item.y));
    EXPECT_EQ(VisiblePage(), IDC_FORMAT_GROUP);
    ExpectTreeTakesKeys();
}

TEST_F(FocusTest, APageHiddenByANewPresetLosesIt) {
    OpenInFieldOfA();
    Command(IDM_TEMPLATE_FIRST);
    ExpectTreeTakesKeys();
}

TEST_F(FocusTest, APageIsStillVisibleWhenItLosesIt) {
    OpenInFieldOfA();
    const Ui::FocusWatch watch(fieldOfA);
    tree.Select(tree.Item(L"B"));
    EXPECT_EQ(watch.Lost(), (Ui::FocusLosses{{tree.Window(), true, true}}));
}

TEST_F(FocusTest, WhatLiesOutsideThePageKeepsIt) {
    OpenInFieldOfA();
    SetFocus(Control(IDC_MAIN_CLOSE));
    tree.Select(tree.Item(L"B"));
    EXPECT_EQ(GetFocus(), Control(IDC_MAIN_CLOSE));
    Command(IDM_REMOVE);
    EXPECT_EQ(GetFocus(), Control(IDC_MAIN_CLOSE));
}

TEST_F(FocusTest, ThePageThatIsShownAgainKeepsIt) {
    OpenInFieldOfA();
    controller->ShowPage(tree.Selected());
    EXPECT_EQ(GetFocus(), fieldOfA);
    Command(IDM_DUPLICATE);
    EXPECT_EQ(GetFocus(), fieldOfA);
}

TEST_F(FocusTest, RemovedPresetsHandItToTheTree) {
    Store({L"A", L"B"});
    Open();
    for (int left = 2; left > 0; left--) {
        SCOPED_TRACE(left);
        const HWND box = GetDlgItem(Pages().front(), IDC_FORMAT_UTF8);
        SetFocus(box);
        ASSERT_EQ(GetFocus(), box);
        const Ui::FocusWatch watch(box);
        Press(VK_DELETE);
        EXPECT_EQ(GetFocus(), tree.Window());
        EXPECT_EQ(watch.Lost(), (Ui::FocusLosses{{tree.Window(), true, true}}));
    }
    EXPECT_TRUE(tree.Names().empty());
}

TEST_F(FocusTest, CreateListPassesItOnBeforeItIsDisabled) {
    Store({L"A"});
    Open();
    SetFocus(Control(IDC_MAIN_CREATE_LIST));
    const Ui::FocusWatch watch(Control(IDC_MAIN_CREATE_LIST));
    Command(IDM_REMOVE);
    EXPECT_FALSE(CanCreateList());
    EXPECT_EQ(GetFocus(), tree.Window());
    EXPECT_EQ(watch.Lost(), (Ui::FocusLosses{{tree.Window(), true, true}}));
}

TEST_F(FocusTest, TheActivatedWindowHasItWhereItWas) {
    OpenInFieldOfA();
    { const OtherWindow other(window); }
    RunLoop();
    EXPECT_EQ(GetFocus(), fieldOfA);
}

TEST_F(FocusTest, AWindowThatWasMinimizedHasItWhereItWas) {
    OpenInFieldOfA();
    const OtherWindow other(window);
    ShowWindow(window, SW_MINIMIZE);
    RunLoop();
    ShowWindow(window, SW_RESTORE);
    RunLoop();
    EXPECT_EQ(GetFocus(), fieldOfA);
}

// As Windows does when a minimised window is restored.
TEST_F(FocusTest, TheWindowPassesItToTheControlThatHadItLast) {
    OpenInFieldOfA();
    { const OtherWindow other(window); }
    SetFocus(window);
    EXPECT_EQ(GetFocus(), fieldOfA);
}

// The dialog window itself takes no keys.
TEST_F(FocusTest, TheWindowPassesItToTheTree) {
    Store({L"A"});
    Open();
    SetFocus(window);
    EXPECT_EQ(GetFocus(), tree.Window());
}

TEST_F(FocusTest, TheActivatedWindowHasItOnTheTreeInsteadOfAHiddenPage) {
    OpenInFieldOfA();
    {
        const OtherWindow other(window);
        tree.Select(tree.Item(L"B"));
    }
    ExpectTreeTakesKeys();
}

TEST_F(FocusTest, TheActivatedWindowHasItOnTheTreeInsteadOfADisabledButton) {
    Store({L"A"});
    Open();
    SetFocus(Control(IDC_MAIN_CREATE_LIST));
    {
        const OtherWindow other(window);
        Command(IDM_REMOVE);
        EXPECT_FALSE(CanCreateList());
    }
    RunLoop();
    EXPECT_EQ(GetFocus(), tree.Window());
}

}  // namespace
