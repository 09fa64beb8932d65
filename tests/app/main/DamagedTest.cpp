// A registry as bad as it can be: the window opens and loses nothing.

#include "support/ui/MainWindowTest.h"

namespace {

using DamagedTest = MainWindowTest;

const std::wstring Root = MainSettings::RootKey;

TEST_F(DamagedTest, TwoHundredPresets) {
    std::vector<std::wstring> names;
    for (int i = 0; i < 200; ++i)
        names.push_back(L"Preset number " + std::to_wstring(i));
    Store(names);
    Open();
    EXPECT_EQ(tree.Names(), names);
    EXPECT_EQ(Pages().size(), 1400u);
    tree.Select(tree.Child(tree.Item(names.back()), L"Opening"));
    EXPECT_EQ(VisiblePage(), IDC_OPENING_GROUP);
    controller->RemovePreset(tree.Item(names.front()));
    EXPECT_EQ(StoredPresets().size(), 199u);
    EXPECT_EQ(StoredPresets().front(), (std::pair<std::wstring, uint32_t>{names[1], 199}));
}

TEST_F(DamagedTest, LongNames) {
    const std::wstring name(300, L'x');
    const std::wstring endless(5000, L'y');
    Store({name, endless});
    Open();
    EXPECT_EQ(tree.Names().front(), name);
    EXPECT_EQ(tree.Names().size(), 2u);
    AwaitSecond();
    controller->DuplicatePreset(tree.Item(name));
    EXPECT_EQ(StoredPresets(), (Stored{{name, 3}, {endless, 2}, {L"Copy of " + name, 1}}));
}

TEST_F(DamagedTest, EmptyNames) {
    Store({L"", L""});
    Open();
    EXPECT_EQ(tree.Names(), (std::vector<std::wstring>{L"", L""}));
    Command(IDM_DUPLICATE);
    EXPECT_EQ(StoredPresets(), (Stored{{L"", 3}, {L"", 2}, {L"Copy of ", 1}}));
}

TEST_F(DamagedTest, KeysThatAreNoPresetsBecomePresetsAndKeepWhatTheyHold) {
    registry.SetString(Root + L"\\something else", L"Its value", L"kept");
    registry.CreateKey(Root + L"\\empty");
    Open();
    EXPECT_EQ(tree.Names(), (std::vector<std::wstring>{L"New Preset", L"New Preset"}));
    Command(IDM_TEMPLATE_FIRST);
    EXPECT_EQ(registry.Get(Root + L"\\something else", L"Its value"), TestSupport::StringValue(L"kept"));
    EXPECT_TRUE(registry.KeyExists(Root + L"\\empty"));
    EXPECT_EQ(StoredPresets().size(), 3u);
}

TEST_F(DamagedTest, ValuesOfOtherTypesCountAsMissing) {
    registry.SetString(Root, L"WindowPosX", L"not a number");
    registry.SetRaw(Root, L"WindowWidth", REG_BINARY, "ab");
    registry.SetString(Root, L"ConfirmExit", L"1");
    registry.SetDword(KeyOf(0), L"Name", 5);
    registry.SetString(KeyOf(0), L"Position", L"7");
    registry.SetDword(KeyOf(0), L"Format", 1);
    registry.SetString(KeyOf(0) + L"\\Display", L"SizeStyle", L"Elephants");
    registry.SetDword(KeyOf(0) + L"\\Display", L"IndentSize", 0xFFFFFFFF);
    registry.SetDword(KeyOf(0) + L"\\Filter", L"PresetSearchPattern", 0xFFFFFFFF);
    registry.SetRaw(KeyOf(0) + L"\\Filter", L"ExcludedFolders", REG_MULTI_SZ,
                    TestSupport::TextData(L"unended"));
    registry.SetString(KeyOf(0) + L"\\Columns\\FolderColumns", L"0", L"Nonsense");
    registry.SetDword(KeyOf(0) + L"\\Sorting", L"FileSortKeys", 3);
    Open();
    EXPECT_TRUE(IsWindowVisible(window));
    EXPECT_EQ(tree.Names(), std::vector<std::wstring>{L"New Preset"});
    for (const std::wstring& page : tree.Children(tree.Item(L"New Preset")))
        tree.Select(tree.Child(tree.Item(L"New Preset"), page));
    EXPECT_EQ(VisiblePage(), IDC_OPENING_GROUP);
}

TEST_F(DamagedTest, EqualPositionsAreSeparatedByTheNextChange) {
    registry.SetString(KeyOf(0), L"Name", L"A");
    registry.SetDword(KeyOf(0), L"Position", 3);
    registry.SetString(KeyOf(1), L"Name", L"B");
    registry.SetDword(KeyOf(1), L"Position", 3);
    registry.SetString(KeyOf(2), L"Name", L"C");
    Open();
    EXPECT_EQ(tree.Names(), (std::vector<std::wstring>{L"A", L"B", L"C"}));
    Command(IDM_TEMPLATE_FIRST);
    EXPECT_EQ(StoredPresets(), (Stored{{L"A", 4}, {L"B", 3}, {L"C", 2}, {L"All files (Simple, Text)", 1}}));
}

TEST_F(DamagedTest, AWindowOfNoSizeOpensAtTheMinimum) {
    registry.SetDword(Root, L"WindowWidth", 0);
    registry.SetDword(Root, L"WindowHeight", 0);
    Open();
    MINMAXINFO limits = {};
    SendMessageW(window, WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&limits));
    RECT rect = {};
    GetWindowRect(window, &rect);
    EXPECT_EQ(rect.right - rect.left, limits.ptMinTrackSize.x);
    EXPECT_EQ(rect.bottom - rect.top, limits.ptMinTrackSize.y);
}

}  // namespace
