// What the commands do to presets: in the tree, to the pages and in the registry.

#include "settings/Templates.h"
#include "support/ui/MainWindowTest.h"

namespace {

using PresetsTest = MainWindowTest;
using Names = std::vector<std::wstring>;

constexpr UINT Gray = MF_GRAYED | MF_DISABLED;

TEST_F(PresetsTest, NewIsLastSelectedAndEditsItsName) {
    Store({L"First", L"Second"});
    Open();
    Command(IDM_NEW);
    EXPECT_EQ(tree.Names(), (Names{L"First", L"Second", L"New Preset"}));
    EXPECT_EQ(tree.Text(tree.Selected()), L"New Preset");
    EXPECT_NE(SendMessageW(tree.Window(), TVM_GETEDITCONTROL, 0, 0), 0);
    EXPECT_EQ(StoredPresets(), (Stored{{L"First", 3}, {L"Second", 2}, {L"New Preset", 1}}));
    EXPECT_EQ(VisiblePage(), IDC_FORMAT_GROUP);
    EXPECT_FALSE(tree.IsExpanded(tree.Selected()));
    EXPECT_EQ(Pages().size(), 21u);
}

TEST_F(PresetsTest, FirstPresetReplacesTheInstructions) {
    Open();
    Command(IDM_NEW);
    EXPECT_FALSE(InstructionsVisible());
    EXPECT_TRUE(CanCreateList());
    EXPECT_EQ(EditStates(), (std::vector<UINT>{MF_ENABLED, MF_ENABLED, MF_ENABLED}));
}

TEST_F(PresetsTest, EachTemplateIsLastAndSelectedWithoutLabelEdit) {
    struct Row {
        WORD command;
        const wchar_t* name;
        const wchar_t* listStyle;
    };
    constexpr Row Rows[] = {
        {256, L"All files (Simple, Text)", L"Text"},
        {257, L"All files (Simple, HTML)", L"Html"},
        {258, L"All files (Details, HTML)", L"Html"},
        {259, L"Audio-files (HTML)", L"Html"},
        {260, L"Video-files (HTML)", L"Html"},
        {261, L"Repository (Exclude .git, .svn and .hg)", L"Html"},
    };
    for (const Row& row : Rows) {
        const TestSupport::TestRegistry fresh;
        Store({L"First"});
        Open();
        Command(row.command);
        EXPECT_EQ(tree.Names(), (Names{L"First", row.name}));
        EXPECT_EQ(tree.Text(tree.Selected()), row.name);
        EXPECT_EQ(SendMessageW(tree.Window(), TVM_GETEDITCONTROL, 0, 0), 0);
        EXPECT_EQ(StoredPresets(), (Stored{{L"First", 2}, {row.name, 1}}));
        EXPECT_EQ(registry.Get(OtherKey({L"preset0"}) + L"\\Format", L"ListStyle"),
                  TestSupport::StringValue(row.listStyle))
            << row.command;
        DestroyWindow(window);
        RunLoop();
    }
}

TEST_F(PresetsTest, NumbersWithoutATemplateMakeNothing) {
    Store({L"First"});
    Open();
    for (const WORD command : {WORD{262}, WORD{511}, WORD{0xFFFF}}) {
        Command(command);
        EXPECT_EQ(tree.Names(), (Names{L"First"})) << command;
    }
}

TEST_F(PresetsTest, DuplicateIsLastUnselectedWithAllValues) {
    Store({L"Source", L"Last"});
    registry.SetString(KeyOf(0) + L"\\Filter", L"CustomSearchPattern", L"*.one;*.two");
    registry.SetString(KeyOf(0) + L"\\Format", L"ListStyle", L"Html");
    Open();
    Command(IDM_DUPLICATE);
    EXPECT_EQ(tree.Names(), (Names{L"Source", L"Last", L"Copy of Source"}));
    EXPECT_EQ(tree.Text(tree.Selected()), L"Source");
    EXPECT_EQ(StoredPresets(), (Stored{{L"Source", 3}, {L"Last", 2}, {L"Copy of Source", 1}}));
    const std::wstring key = OtherKey({L"preset0", L"preset1"});
    EXPECT_EQ(registry.Get(key + L"\\Filter", L"CustomSearchPattern"),
              TestSupport::StringValue(L"*.one;*.two"));
    EXPECT_EQ(registry.Get(key + L"\\Format", L"ListStyle"), TestSupport::StringValue(L"Html"));
}

TEST_F(PresetsTest, DuplicateOfACopyIsPrefixedOnceMore) {
    Store({L"Copy of Source"});
    Open();
    Command(IDM_DUPLICATE);
    NextSecond();
    Command(IDM_DUPLICATE);
    EXPECT_EQ(tree.Names(), (Names{L"Copy of Source", L"Copy of Copy of Source", L"Copy of Copy of Source"}));
    EXPECT_EQ(
        StoredPresets(),
        (Stored{{L"Copy of Source", 3}, {L"Copy of Copy of Source", 2}, {L"Copy of Copy of Source", 1}}));
}

TEST_F(PresetsTest, DuplicateFindsThePresetOfAChildItem) {
    Store({L"Source"});
    Open();
    AwaitSecond();
    controller->DuplicatePreset(tree.Child(tree.Item(L"Source"), L"Sorting"));
    EXPECT_EQ(tree.Names(), (Names{L"Source", L"Copy of Source"}));
}

TEST_F(PresetsTest, RemoveTakesItemPagesAndKeyAndRenumbers) {
    Store({L"A", L"B", L"C"});
    Open();
    const std::vector<HWND> pages = Pages();
    tree.Select(tree.Item(L"B"));
    SendMessageW(window, WM_COMMAND, IDM_REMOVE, 0);
    EXPECT_EQ(tree.Names(), (Names{L"A", L"C"}));
    EXPECT_EQ(StoredPresets(), (Stored{{L"A", 2}, {L"C", 1}}));
    EXPECT_FALSE(registry.KeyExists(KeyOf(1)));
    for (size_t i = 0; i < pages.size(); ++i)
        EXPECT_EQ(IsWindow(pages[i]) != FALSE, i / 7 != 1) << i;
    // The tree has moved the selection, and the page has followed.
    ASSERT_NE(tree.Selected(), nullptr);
    EXPECT_EQ(VisiblePage(), IDC_FORMAT_GROUP);
}

TEST_F(PresetsTest, PagesBelongToTheirPresetsAfterARemoval) {
    Store({L"A", L"B", L"C"});
    Open();
    controller->RemovePreset(tree.Item(L"A"));
    controller->RenamePreset(tree.Child(tree.Item(L"C"), L"Filter"), L"Renamed");
    EXPECT_EQ(StoredPresets(), (Stored{{L"B", 2}, {L"Renamed", 1}}));
    tree.Select(tree.Child(tree.Item(L"B"), L"Opening"));
    EXPECT_EQ(VisiblePage(), IDC_OPENING_GROUP);
}

TEST_F(PresetsTest, RemovingTheLastBringsTheInstructionsBack) {
    Store({L"Only"});
    Open();
    SendMessageW(window, WM_COMMAND, IDM_REMOVE, 0);
    EXPECT_TRUE(tree.Names().empty());
    EXPECT_TRUE(InstructionsVisible());
    EXPECT_EQ(VisiblePage(), 0);
    EXPECT_FALSE(CanCreateList());
    EXPECT_EQ(EditStates(), (std::vector<UINT>{Gray, Gray, Gray}));
    EXPECT_TRUE(StoredPresets().empty());
    // And a new one works as the first did.
    Command(IDM_NEW);
    EXPECT_EQ(VisiblePage(), IDC_FORMAT_GROUP);
    EXPECT_FALSE(InstructionsVisible());
}

TEST_F(PresetsTest, RenameKeepsTheKey) {
    Store({L"Old"});
    Open();
    controller->RenamePreset(tree.Item(L"Old"), L"New name");
    EXPECT_EQ(registry.Get(KeyOf(0), L"Name"), TestSupport::StringValue(L"New name"));
    EXPECT_EQ(registry.Subkeys(MainSettings::RootKey), Names{L"preset0"});
}

TEST_F(PresetsTest, ReorderCountsFromTheBottom) {
    Store({L"A", L"B", L"C"});
    Open();
    std::vector<uint32_t> ids;
    for (const wchar_t* name : {L"C", L"A", L"B"})
        ids.push_back(static_cast<uint32_t>(tree.Parameter(tree.Item(name))));
    controller->ReorderPresets(ids);
    EXPECT_EQ(StoredPresets(), (Stored{{L"C", 3}, {L"A", 2}, {L"B", 1}}));
}

TEST_F(PresetsTest, EachItemShowsItsPageAlone) {
    Store({L"A", L"B"});
    Open();
    const Names children = {L"Display", L"Filter", L"Columns", L"Sorting", L"Saving", L"Opening"};
    for (const wchar_t* name : {L"B", L"A"}) {
        tree.Select(tree.Item(name));
        EXPECT_EQ(VisiblePage(), IDC_FORMAT_GROUP);
        for (size_t i = 0; i < children.size(); ++i) {
            tree.Select(tree.Child(tree.Item(name), children[i]));
            EXPECT_EQ(VisiblePage(), PageGroups[i + 1]) << testing::PrintToString(children[i]);
        }
    }
}

TEST_F(PresetsTest, PageItemGraysTheItemCommandsButCanBeListed) {
    Store({L"A"});
    Open();
    tree.Select(tree.Child(tree.Item(L"A"), L"Columns"));
    EXPECT_EQ(EditStates(), (std::vector<UINT>{Gray, Gray, Gray}));
    EXPECT_TRUE(CanCreateList());
    EXPECT_FALSE(InstructionsVisible());
}

TEST_F(PresetsTest, WithoutASelectionThereIsNothingToDoButNoInstructions) {
    Store({L"A"});
    Open();
    // It selects its first item when it gets the focus.
    SetFocus(tree.Window());
    tree.Select(nullptr);
    EXPECT_EQ(EditStates(), (std::vector<UINT>{Gray, Gray, Gray}));
    EXPECT_FALSE(CanCreateList());
    EXPECT_FALSE(InstructionsVisible());
    EXPECT_FALSE(controller->OnMenuCommand(IDM_REMOVE));
}

TEST_F(PresetsTest, ItemIdsAreNeverUsedTwice) {
    Store({L"A"});
    Open();
    const LPARAM first = tree.Parameter(tree.Item(L"A"));
    controller->RemovePreset(tree.Item(L"A"));
    AwaitSecond();
    controller->NewFromTemplate(0);
    EXPECT_EQ(tree.Parameter(tree.Item(TemplateNames[0])), first + 7);
}

TEST_F(PresetsTest, CommandsOfTheMenu) {
    Open();
    // Without a selection the item commands are not handled; Enter, Esc and foreign numbers never are.
    for (const WORD id : {WORD{IDM_DUPLICATE}, WORD{IDM_RENAME}, WORD{IDM_REMOVE}, WORD{IDOK}, WORD{IDCANCEL},
                          WORD{40005}, WORD{40008}, WORD{40029}})
        EXPECT_FALSE(controller->OnMenuCommand(id)) << id;
    EXPECT_TRUE(IsWindow(window));
    AwaitSecond();
    EXPECT_TRUE(controller->OnMenuCommand(IDM_NEW));
    EXPECT_TRUE(controller->OnMenuCommand(IDM_RENAME));
}

TEST_F(PresetsTest, AcceleratorsOfItemsNeedAPreset) {
    Store({L"A"});
    Open();
    tree.Select(tree.Child(tree.Item(L"A"), L"Filter"));
    for (const WORD key : ItemKeys)
        EXPECT_FALSE(controller->OnAccelerator(key)) << key;
    EXPECT_FALSE(controller->OnAccelerator(VK_F3));
    EXPECT_EQ(StoredPresets(), (Stored{{L"A", 1}}));
    tree.Select(tree.Item(L"A"));
    AwaitSecond();
    EXPECT_TRUE(controller->OnAccelerator(VK_F6));
    EXPECT_TRUE(controller->OnAccelerator(VK_F2));
    EXPECT_TRUE(controller->OnAccelerator(VK_DELETE));
    EXPECT_EQ(StoredPresets(), (Stored{{L"Copy of A", 1}}));
}

TEST_F(PresetsTest, ControlsWithTheIdsOfOkAndCancelAreRefused) {
    Open();
    for (const WORD id : {WORD{IDOK}, WORD{IDCANCEL}})
        EXPECT_FALSE(controller->OnControlCommand(id, window, BN_CLICKED)) << id;
    EXPECT_FALSE(controller->OnControlCommand(IDC_MAIN_CLOSE, Control(IDC_MAIN_CLOSE), BN_SETFOCUS));
    EXPECT_TRUE(IsWindow(window));
}

}  // namespace
