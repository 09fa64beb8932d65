#include "resources/resource.h"
#include "support/ui/MainWindowTest.h"
#include "winlib/WindowText.h"

namespace {

using StartTest = MainWindowTest;

constexpr UINT Gray = MF_GRAYED | MF_DISABLED;

TEST_F(StartTest, EmptyRegistryShowsInstructionsAndNothingToList) {
    Open();
    EXPECT_TRUE(IsWindowVisible(window));
    EXPECT_TRUE(tree.Names().empty());
    EXPECT_TRUE(InstructionsVisible());
    EXPECT_EQ(VisiblePage(), 0);
    EXPECT_FALSE(CanCreateList());
    EXPECT_FALSE(IsBusy());
    EXPECT_EQ(EditStates(), (std::vector<UINT>{Gray, Gray, Gray}));
    EXPECT_EQ(WinLib::GetWindowText(window), L"Tamblewick 4.0.1");
}

// The PBM_SETMARQUEE that the busy bar has got, while the hook is set.
std::vector<std::pair<WPARAM, LPARAM>> marquees;

LRESULT CALLBACK NoteMarquees(int code, WPARAM wParam, LPARAM lParam) {
    const auto& call = *reinterpret_cast<const CWPSTRUCT*>(lParam);
    if (code == HC_ACTION && call.message == PBM_SETMARQUEE && GetDlgCtrlID(call.hwnd) == IDC_MAIN_BUSY_BAR)
        marquees.emplace_back(call.wParam, call.lParam);
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

TEST_F(StartTest, TheBusyBarMovesFromTheStart) {
    marquees.clear();
    const HHOOK hook = SetWindowsHookExW(WH_CALLWNDPROC, NoteMarquees, nullptr, GetCurrentThreadId());
    Open();
    UnhookWindowsHookEx(hook);
    EXPECT_EQ(marquees, (std::vector<std::pair<WPARAM, LPARAM>>{{TRUE, 0}}));
}

TEST_F(StartTest, WritesNothing) {
    Open();
    RunLoop();
    EXPECT_FALSE(registry.KeyExists(MainSettings::RootKey));
}

TEST_F(StartTest, PresetsStandByDescendingPositionCollapsedWithTheirPages) {
    registry.SetString(KeyOf(0), L"Name", L"Low");
    registry.SetDword(KeyOf(0), L"Position", 1);
    registry.SetString(KeyOf(1), L"Name", L"High");
    registry.SetDword(KeyOf(1), L"Position", 7);
    registry.SetString(KeyOf(2), L"Name", L"Middle");
    registry.SetDword(KeyOf(2), L"Position", 3);
    Open();
    EXPECT_EQ(tree.Names(), (std::vector<std::wstring>{L"High", L"Middle", L"Low"}));
    for (const std::wstring& name : tree.Names()) {
        EXPECT_EQ(tree.Children(tree.Item(name)),
                  (std::vector<std::wstring>{L"Display", L"Filter", L"Columns", L"Sorting", L"Saving",
                                             L"Opening"}));
        EXPECT_FALSE(tree.IsExpanded(tree.Item(name))) << testing::PrintToString(name);
    }
}

TEST_F(StartTest, SelectsTheFirstPresetAndShowsItsFormatPage) {
    Store({L"First", L"Second"});
    Open();
    EXPECT_EQ(tree.Text(tree.Selected()), L"First");
    EXPECT_EQ(VisiblePage(), IDC_FORMAT_GROUP);
    EXPECT_FALSE(InstructionsVisible());
    EXPECT_TRUE(CanCreateList());
    EXPECT_EQ(EditStates(), (std::vector<UINT>{MF_ENABLED, MF_ENABLED, MF_ENABLED}));
}

TEST_F(StartTest, MakesSevenHiddenPagesForEachPresetInItemOrder) {
    Store({L"First", L"Second"});
    Open();
    const std::vector<HWND> pages = Pages();
    ASSERT_EQ(pages.size(), 14u);
    for (size_t i = 0; i < pages.size(); ++i) {
        EXPECT_NE(GetDlgItem(pages[i], PageGroups[i % 7]), nullptr) << i;
        EXPECT_EQ(IsWindowVisible(pages[i]) != FALSE, i == 0) << i;
    }
}

TEST_F(StartTest, RegistersDialogsInTheOrderOfCreation) {
    Store({L"Only"});
    Open();
    // The page of instructions, seven pages, and the window itself, which is complete last.
    ASSERT_EQ(Process().Dialogs.size(), 9u);
    EXPECT_NE(GetDlgItem(Process().Dialogs[0], IDC_MANAGE_GROUP), nullptr);
    EXPECT_EQ(std::vector<HWND>(Process().Dialogs.begin() + 1, Process().Dialogs.end() - 1), Pages());
    EXPECT_EQ(Process().Dialogs.back(), window);
}

TEST_F(StartTest, TakesPlaceAndSizeFromTheRegistry) {
    registry.SetDword(MainSettings::RootKey, L"WindowPosX", 40);
    registry.SetDword(MainSettings::RootKey, L"WindowPosY", 30);
    registry.SetDword(MainSettings::RootKey, L"WindowWidth", 700);
    registry.SetDword(MainSettings::RootKey, L"WindowHeight", 480);
    Open();
    RECT rect = {};
    GetWindowRect(window, &rect);
    EXPECT_EQ(rect.left, 40);
    EXPECT_EQ(rect.top, 30);
    EXPECT_EQ(rect.right - rect.left, 700);
    EXPECT_EQ(rect.bottom - rect.top, 480);
}

TEST_F(StartTest, OpensOffScreenWhereItWasSaved) {
    registry.SetDword(MainSettings::RootKey, L"WindowPosX", static_cast<DWORD>(-5000));
    registry.SetDword(MainSettings::RootKey, L"WindowPosY", 9000);
    Open();
    RECT rect = {};
    GetWindowRect(window, &rect);
    EXPECT_EQ(rect.left, -5000);
    EXPECT_EQ(rect.top, 9000);
}

TEST_F(StartTest, SetsAcceleratorsForTheWindow) {
    Open();
    EXPECT_EQ(Process().AcceleratorWindow, window);
    ACCEL keys[10] = {};
    ASSERT_EQ(CopyAcceleratorTableW(Process().Accelerators, keys, 10), 6);
    std::vector<WORD> codes;
    for (int i = 0; i < 6; ++i) {
        // The last entry of a table is marked by a bit of its own.
        EXPECT_EQ(keys[i].fVirt & 0x7F, FVIRTKEY) << i;
        EXPECT_EQ(keys[i].cmd, keys[i].key) << i;
        codes.push_back(keys[i].key);
    }
    std::sort(codes.begin(), codes.end());
    EXPECT_EQ(codes, (std::vector<WORD>{0x2E, 0x70, 0x71, 0x74, 0x75, 0x76}));
}

TEST_F(StartTest, TreeHasButtonsAndRowsOf18Pixels) {
    Open();
    EXPECT_TRUE(GetWindowLongPtrW(tree.Window(), GWL_STYLE) & TVS_HASBUTTONS);
    EXPECT_FALSE(GetWindowLongPtrW(tree.Window(), GWL_STYLE) & TVS_EDITLABELS);
    EXPECT_EQ(SendMessageW(tree.Window(), TVM_GETITEMHEIGHT, 0, 0), 18);
    EXPECT_TRUE(SendMessageW(tree.Window(), CCM_GETUNICODEFORMAT, 0, 0));
}

TEST_F(StartTest, ShowsTheWindowAsTheProcessWasAskedTo) {
    Process().ShowCommand = SW_SHOWMINNOACTIVE;
    Open();
    EXPECT_TRUE(IsIconic(window));
}

}  // namespace
