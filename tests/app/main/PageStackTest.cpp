// The pages of presets by the ids of items, without the main window and its tree.

#include "app/PageStack.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "BareDialog.h"
#include "app/FocusKeeper.h"
#include "pages/PropertyController.h"
#include "settings/Preset.h"
#include "support/TestRegistry.h"
#include "winlib/Exception.h"
#include "winlib/layout/Overlapped.h"

namespace {

class PageStackTest : public testing::Test {
protected:
    PageStackTest() {
        SetActiveWindow(dialog.Handle);
        focus.Attach(dialog.Handle, dialog.Control(IDC_MAIN_TREE), dialog.Control(IDC_MAIN_CREATE_LIST));
        stack.Attach(dialog.Handle, sizer);
    }
    // Controllers of dialogs must outlive their windows.
    ~PageStackTest() override {
        stack.RemoveAll();
        DestroyWindow(dialog.Handle);
    }

    // The children that are dialogs: the page of instructions first, then the pages in the order of creation.
    std::vector<HWND> Windows() const { return WinLib::Application::Current()->Dialogs; }

    bool InstructionsVisible() const { return IsWindowVisible(Windows().front()) != FALSE; }
    bool IsVisible(uint32_t id) const { return IsWindowVisible(stack.PageOf(id)->Handle) != FALSE; }

    TestSupport::TestRegistry registry;
    BareDialog dialog;
    Preset first{L"Software\\Tamblewick\\first"};
    Preset second{L"Software\\Tamblewick\\second"};
    FocusKeeper focus;
    WinLib::Layout::Overlapped sizer;
    PageStack stack{focus};
    const std::vector<uint32_t> ids = {11, 12, 13, 14, 15, 16, 17};
    const std::vector<uint32_t> others = {21, 22, 23, 24, 25, 26, 27};
};

TEST_F(PageStackTest, StartsWithTheInstructions) {
    ASSERT_EQ(Windows().size(), 1u);
    EXPECT_TRUE(InstructionsVisible());
    EXPECT_EQ(stack.PageOf(11), nullptr);
    EXPECT_EQ(stack.PresetOf(11), nullptr);
    stack.Show(11);
    EXPECT_TRUE(InstructionsVisible());
}

TEST_F(PageStackTest, FindsPresetsByTheIdsOfTheirPages) {
    stack.Add(ids, first);
    stack.Add(others, second);
    for (const uint32_t id : ids)
        EXPECT_EQ(stack.PresetOf(id), &first) << id;
    for (const uint32_t id : others)
        EXPECT_EQ(stack.PresetOf(id), &second) << id;
    EXPECT_EQ(stack.PresetOf(18), nullptr);
}

TEST_F(PageStackTest, PagesComeInTheOrderOfTheItems) {
    stack.Add(ids, first);
    const std::vector<int> groups = {IDC_FORMAT_GROUP,  IDC_DISPLAY_GROUP, IDC_FILTER_GROUP,
                                     IDC_COLUMNS_GROUP, IDC_SORTING_GROUP, IDC_SAVING_GROUP,
                                     IDC_OPENING_GROUP};
    for (size_t i = 0; i < ids.size(); ++i)
        EXPECT_NE(GetDlgItem(stack.PageOf(ids[i])->Handle, groups[i]), nullptr) << i;
}

TEST_F(PageStackTest, ShowsOnePageInThePlaceOfTheOther) {
    stack.Add(ids, first);
    EXPECT_FALSE(IsVisible(11));
    stack.Show(11);
    EXPECT_TRUE(IsVisible(11));
    stack.Show(12);
    EXPECT_FALSE(IsVisible(11));
    EXPECT_TRUE(IsVisible(12));
    stack.Show(12);
    EXPECT_TRUE(IsVisible(12));
    stack.ShowInstructions(false);
    EXPECT_FALSE(InstructionsVisible());
    stack.ShowInstructions(true);
    EXPECT_TRUE(InstructionsVisible());
}

TEST_F(PageStackTest, AHiddenPageGivesTheFocusToTheTree) {
    stack.Add(ids, first);
    stack.Show(11);
    SetFocus(GetDlgItem(stack.PageOf(11)->Handle, IDC_FORMAT_UTF8));
    stack.Show(12);
    EXPECT_EQ(GetFocus(), dialog.Control(IDC_MAIN_TREE));
}

TEST_F(PageStackTest, RemoveDestroysTheWindowsOfThesePages) {
    stack.Add(ids, first);
    stack.Add(others, second);
    const HWND removed = stack.PageOf(13)->Handle;
    const HWND kept = stack.PageOf(23)->Handle;
    stack.Remove(ids);
    EXPECT_FALSE(IsWindow(removed));
    EXPECT_EQ(stack.PageOf(13), nullptr);
    EXPECT_TRUE(IsWindow(kept));
    stack.RemoveAll();
    EXPECT_FALSE(IsWindow(kept));
    EXPECT_TRUE(InstructionsVisible());
}

TEST_F(PageStackTest, ThereIsNoEighthPage) {
    std::vector<uint32_t> eight = ids;
    eight.push_back(18);
    EXPECT_THROW(stack.Add(eight, first), WinLib::Exception);
}

}  // namespace
