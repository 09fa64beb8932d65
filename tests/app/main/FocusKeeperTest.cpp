// The keyboard focus of the main window, without its controller.

#include "app/FocusKeeper.h"

#include <gtest/gtest.h>

#include "BareDialog.h"

namespace {

class FocusKeeperTest : public testing::Test {
protected:
    FocusKeeperTest() {
        SetActiveWindow(dialog.Handle);
        keeper.Attach(dialog.Handle, tree, button);
    }

    BareDialog dialog;
    const HWND tree = dialog.Control(IDC_MAIN_TREE);
    const HWND button = dialog.Control(IDC_MAIN_CREATE_LIST);
    const HWND other = dialog.Control(IDC_MAIN_CLOSE);
    FocusKeeper keeper;
};

TEST_F(FocusKeeperTest, TheTreeTakesTheFocusFromTheWindowThatHasIt) {
    SetFocus(other);
    keeper.TakeFrom(button);
    EXPECT_EQ(GetFocus(), other);
    keeper.TakeFrom(other);
    EXPECT_EQ(GetFocus(), tree);
}

TEST_F(FocusKeeperTest, TheTreeTakesTheFocusFromAChild) {
    SetFocus(other);
    keeper.TakeFrom(dialog.Handle);
    EXPECT_EQ(GetFocus(), tree);
}

TEST_F(FocusKeeperTest, HideMovesTheFocusAndHides) {
    SetFocus(other);
    keeper.Hide(other);
    EXPECT_EQ(GetFocus(), tree);
    EXPECT_FALSE(IsWindowVisible(other));
}

TEST_F(FocusKeeperTest, TheButtonGetsTheFocusBackOnce) {
    SetFocus(button);
    keeper.Lend();
    EXPECT_EQ(GetFocus(), tree);
    EnableWindow(button, FALSE);
    keeper.Return();
    EXPECT_EQ(GetFocus(), tree) << "the button is still disabled";
    EnableWindow(button, TRUE);
    keeper.Return();
    EXPECT_EQ(GetFocus(), button);
    SetFocus(tree);
    keeper.Return();
    EXPECT_EQ(GetFocus(), tree);
}

TEST_F(FocusKeeperTest, AButtonThatDidNotHaveTheFocusDoesNotGetIt) {
    SetFocus(tree);
    keeper.Lend();
    keeper.Return();
    EXPECT_EQ(GetFocus(), tree);
}

TEST_F(FocusKeeperTest, AChoiceOfTheUserKeepsTheFocus) {
    SetFocus(button);
    keeper.Lend();
    keeper.Forget();
    keeper.Return();
    EXPECT_EQ(GetFocus(), tree);
    SetFocus(button);
    keeper.Lend();
    SetFocus(other);
    keeper.Return();
    EXPECT_EQ(GetFocus(), other);
}

TEST_F(FocusKeeperTest, AnActivationRestoresWhatADeactivationFound) {
    SetFocus(other);
    keeper.Activated(WA_INACTIVE);
    SetFocus(button);
    keeper.Activated(WA_ACTIVE);
    EXPECT_EQ(GetFocus(), other);
}

TEST_F(FocusKeeperTest, WhatCannotTakeKeysGivesTheFocusToTheTree) {
    SetFocus(other);
    keeper.Activated(WA_INACTIVE);
    EnableWindow(other, FALSE);
    keeper.Restore();
    EXPECT_EQ(GetFocus(), tree);
    EnableWindow(other, TRUE);
    keeper.Restore();
    EXPECT_EQ(GetFocus(), other);
}

}  // namespace
