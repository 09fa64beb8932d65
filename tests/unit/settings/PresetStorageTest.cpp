#include <gtest/gtest.h>

#include "PresetValues.h"
#include "settings/Preset.h"
#include "support/TestRegistry.h"

using namespace TestSupport;

namespace {

const std::wstring Root = L"Software\\Tamblewick";
const std::wstring Key = Root + L"\\abc";

TEST(PresetStorage, WhatWasSavedIsLoaded) {
    TestRegistry registry;
    Preset saved(L"abc");
    ChangeEveryValue(saved);
    EXPECT_TRUE(saved.Save());
    Preset loaded(L"abc");
    EXPECT_TRUE(loaded.Load());
    ExpectEqual(ValuesOf(loaded), ChangedValues());
}

TEST(PresetStorage, WithoutItsKeyAPresetKeepsItsDefaults) {
    TestRegistry registry;
    Preset preset(L"abc");
    EXPECT_FALSE(preset.Load());
    ExpectEqual(ValuesOf(preset), PresetValues{});
    EXPECT_FALSE(registry.KeyExists(Key));
}

TEST(PresetStorage, DamagedValuesKeepTheirDefaultsAndTheOthersAreRead) {
    TestRegistry registry;
    Preset saved(L"abc");
    ChangeEveryValue(saved);
    EXPECT_TRUE(saved.Save());
    registry.SetDword(Key, L"Name", 1);
    registry.SetString(Key, L"Position", L"5");
    registry.SetString(Key + L"\\Format", L"ListStyle", L"Rtf");
    registry.SetString(Key + L"\\Format", L"EnableUtf8", L"0");
    registry.SetRaw(Key + L"\\Display", L"IndentSize", REG_DWORD, std::string(2, '\7'));
    registry.SetRaw(Key + L"\\Opening", L"CustomProgramPath", REG_EXPAND_SZ, TextData({L"C:\\x\0", 5}));
    registry.SetString(Key + L"\\Columns\\FolderColumns", L"2", L"Colour");
    registry.SetString(Key + L"\\Columns\\FolderEnabled", L"11", L"yes");
    registry.DeleteKey(Key + L"\\Saving");
    registry.DeleteKey(Key + L"\\Sorting\\FileSortKeys");

    Preset loaded(L"abc");
    EXPECT_FALSE(loaded.Load());
    PresetValues expected = ChangedValues();
    const PresetValues defaults;
    expected.name = L"New Preset";
    expected.position = 0;
    expected.listStyle = ListStyle::Text;
    expected.enableUtf8 = true;
    expected.indentSize = 1;
    expected.customProgramPath = L"";
    expected.folderColumns[2] = 1;  // the default of that place, so a column is in the array twice
    expected.folderEnabled[11] = 0;
    expected.saveLocation = SaveLocation::Temporary;
    expected.customFolderPath = L"";
    expected.overwriteExisting = false;
    expected.fileSortKeys = defaults.fileSortKeys;
    ExpectEqual(ValuesOf(loaded), expected);
}

TEST(PresetStorage, AMissingFilterKeepsTheExcludedFolders) {
    TestRegistry registry;
    EXPECT_TRUE(Preset(L"abc").Save());
    registry.DeleteKey(Key + L"\\Filter");
    Preset preset(L"abc");
    EXPECT_FALSE(preset.Load());
    ExpectEqual(ValuesOf(preset), PresetValues{});
}

TEST(PresetStorage, AFilterWithoutExcludedFoldersEmptiesThem) {
    TestRegistry registry;
    registry.CreateKey(Key + L"\\Filter");
    PresetValues expected;
    expected.excludedFolders = {};
    Preset missing(L"abc");
    EXPECT_FALSE(missing.Load());
    ExpectEqual(ValuesOf(missing), expected);

    registry.SetString(Key + L"\\Filter", L"ExcludedFolders", L"*\\one");
    Preset mistyped(L"abc");
    EXPECT_FALSE(mistyped.Load());
    ExpectEqual(ValuesOf(mistyped), expected);
}

TEST(PresetStorage, AShortColumnArrayChangesItsElementsOnly) {
    TestRegistry registry;
    registry.SetString(Key + L"\\Columns\\FileColumns", L"0", L"Extension");
    registry.SetString(Key + L"\\Columns\\FileColumns", L"1", L"size");
    Preset preset(L"abc");
    EXPECT_FALSE(preset.Load());
    PresetValues expected;
    expected.fileColumns = {5, 6, 1, 2, 4, 5, 6, 7, 8, 9, 10};
    ExpectEqual(ValuesOf(preset), expected);
}

TEST(PresetStorage, NumbersOutOfRangeAreNotTested) {
    TestRegistry registry;
    registry.SetDword(Key + L"\\Filter", L"PresetSearchPattern", 0xFFFFFFFF);
    registry.SetDword(Key + L"\\Display", L"IndentSize", 0xFFFFFFFF);
    Preset preset(L"abc");
    preset.Load();
    EXPECT_EQ(ValuesOf(preset).presetSearchPattern, -1);
    EXPECT_EQ(ValuesOf(preset).indentSize, 0xFFFFFFFF);
}

TEST(PresetStorage, TheNextSaveWritesOverWhatWasDamaged) {
    TestRegistry registry;
    registry.SetString(Key + L"\\Format", L"ListStyle", L"html");
    registry.SetDword(Key + L"\\Format", L"EnableUtf8", 7);
    registry.SetString(Key, L"Position", L"5");
    Preset preset(L"abc");
    preset.Load();
    EXPECT_EQ(ValuesOf(preset).listStyle, ListStyle::Html);
    EXPECT_EQ(registry.Get(Key + L"\\Format", L"ListStyle"), StringValue(L"html"));
    EXPECT_TRUE(preset.Save());
    EXPECT_EQ(registry.Get(Key + L"\\Format", L"ListStyle"), StringValue(L"Html"));
    EXPECT_EQ(registry.Get(Key + L"\\Format", L"EnableUtf8"), DwordValue(1));
    EXPECT_EQ(registry.Get(Key, L"Position"), DwordValue(0));
}

TEST(PresetStorage, AnEmptyKeyStoresInTheRootKey) {
    TestRegistry registry;
    EXPECT_TRUE(Preset(L"").Save());
    EXPECT_EQ(registry.Get(Root, L"Name"), StringValue(L"New Preset"));
    EXPECT_EQ(registry.Get(Root + L"\\", L"Name"), StringValue(L"New Preset"));
    EXPECT_TRUE(Preset(L"").Load());
    EXPECT_EQ(registry.Subkeys(Root), (std::vector<std::wstring>{L"Columns", L"Display", L"Filter", L"Format",
                                                                 L"Opening", L"Saving", L"Sorting"}));
}

TEST(PresetStorage, DeleteKeyRemovesThePresetWithAllBelow) {
    TestRegistry registry;
    Preset preset(L"abc");
    EXPECT_TRUE(preset.Save());
    registry.SetString(Key + L"\\Foreign\\Deep\\Deeper", L"x", L"y");
    EXPECT_TRUE(Preset(L"other").Save());
    preset.DeleteKey();
    EXPECT_EQ(registry.Subkeys(Root), std::vector<std::wstring>{L"other"});
}

TEST(PresetStorage, DeleteKeyOfTheEmptyKeyDeletesNothing) {
    TestRegistry registry;
    EXPECT_TRUE(Preset(L"abc").Save());
    EXPECT_TRUE(Preset(L"").Save());
    Preset(L"").DeleteKey();
    EXPECT_EQ(registry.Subkeys(Root).size(), 8u);
    EXPECT_EQ(registry.Get(Root, L"Name"), StringValue(L"New Preset"));
}

TEST(PresetStorage, DeleteKeyWithoutAnythingStoredDoesNothing) {
    TestRegistry registry;
    Preset(L"abc").DeleteKey();
    EXPECT_FALSE(registry.KeyExists(Root));
    registry.CreateKey(Root);
    Preset(L"abc").DeleteKey();
    EXPECT_TRUE(registry.KeyExists(Root));
}

}  // namespace
