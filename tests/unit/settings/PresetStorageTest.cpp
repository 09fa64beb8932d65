#include <gtest/gtest.h>

#include <map>

#include "PresetValues.h"
#include "settings/Preset.h"
#include "support/TestRegistry.h"
#include "support/Text.h"

using namespace TestSupport;

namespace {

const std::wstring Root = L"Software\\Tamblewick";
const std::wstring Key = Root + L"\\abc";

using Contents = std::map<std::wstring, RegistryValue>;

// All values below a key under their paths; a key that holds nothing counts under its path and a backslash.
void Collect(const TestRegistry& registry, const std::wstring& key, const std::wstring& prefix,
             Contents& contents) {
    for (const std::wstring& name : registry.ValueNames(key)) {
        contents.emplace(prefix + name, *registry.Get(key, name));
    }
    for (const std::wstring& subkey : registry.Subkeys(key)) {
        Collect(registry, key + L"\\" + subkey, prefix + subkey + L"\\", contents);
    }
}

// What stands under the key against what must, with nothing over.
void ExpectContents(const TestRegistry& registry, const std::wstring& key, const Contents& expected) {
    Contents actual;
    Collect(registry, key, L"", actual);
    for (const auto& [path, value] : expected) {
        const auto found = actual.find(path);
        if (found == actual.end()) {
            ADD_FAILURE() << Utf8(path) << " is missing";
        } else {
            EXPECT_EQ(found->second, value) << Utf8(path);
        }
    }
    for (const auto& [path, value] : actual) {
        EXPECT_TRUE(expected.contains(path)) << Utf8(path) << " is too much";
    }
}

Contents Texts(const std::wstring& path, const std::vector<std::wstring>& words) {
    Contents contents;
    for (size_t i = 0; i < words.size(); ++i) {
        contents.emplace(path + std::to_wstring(i), StringValue(words[i]));
    }
    return contents;
}

Contents Flags(const std::wstring& path, const std::vector<uint32_t>& flags) {
    Contents contents;
    for (size_t i = 0; i < flags.size(); ++i) {
        contents.emplace(path + std::to_wstring(i), DwordValue(flags[i]));
    }
    return contents;
}

TEST(PresetStorage, ANewPresetIsStoredInFull) {
    TestRegistry registry;
    EXPECT_TRUE(Preset(L"abc").Save());
    Contents expected = {
        {L"Name", StringValue(L"New Preset")},
        {L"Position", DwordValue(0)},
        {L"Format\\ListStyle", StringValue(L"Text")},
        {L"Format\\EnableUtf8", DwordValue(1)},
        {L"Display\\SearchSubfolders", DwordValue(0)},
        {L"Display\\SearchHidden", DwordValue(0)},
        {L"Display\\ShowStatistics", DwordValue(0)},
        {L"Display\\ShowFlatStyle", DwordValue(0)},
        {L"Display\\IndentSize", DwordValue(1)},
        {L"Display\\SizeStyle", StringValue(L"Dynamic")},
        {L"Columns\\ShowHeaders", DwordValue(1)},
        {L"Filter\\PresetSearchPattern", DwordValue(0)},
        {L"Filter\\CustomSearchPattern", StringValue(L"*")},
        {L"Filter\\ExcludedFolders", StringListValue({L"?:\\System Volume Information"})},
        {L"Saving\\SaveLocation", StringValue(L"Temporary")},
        {L"Saving\\CustomFolderPath", StringValue(L"")},
        {L"Saving\\OverwriteExisting", DwordValue(0)},
        {L"Opening\\OpenMethod", StringValue(L"Default")},
        {L"Opening\\CustomProgramPath", StringValue(L"")},
        {L"Sorting\\SortDigitsAsNumbers", DwordValue(0)},
    };
    expected.merge(Texts(L"Columns\\FolderColumns\\",
                         {L"PathAndName", L"Number", L"Path", L"Name", L"Size", L"Attributes", L"TimeCreated",
                          L"LastTimeAccessed", L"LastTimeWritten", L"NumberOfFolders", L"NumberOfFiles",
                          L"NumberOfFoldersAndFiles"}));
    expected.merge(Flags(L"Columns\\FolderEnabled\\", {1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
    expected.merge(
        Texts(L"Columns\\FileColumns\\",
              {L"PathAndFilename", L"Number", L"Path", L"Filename", L"FilenameWithoutExtension", L"Extension",
               L"Size", L"Attributes", L"TimeCreated", L"LastTimeAccessed", L"LastTimeWritten"}));
    expected.merge(Flags(L"Columns\\FileEnabled\\", {1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
    expected.merge(Texts(L"Sorting\\FolderSortKeys\\",
                         {L"Path", L"Name", L"Size", L"TimeCreated", L"LastTimeAccessed", L"LastTimeWritten",
                          L"NumberOfFolders", L"NumberOfFiles", L"NumberOfFoldersAndFiles"}));
    expected.merge(Texts(L"Sorting\\FolderSortOrder\\",
                         {L"Ascending", L"Ascending", L"Descending", L"Ascending", L"Ascending", L"Ascending",
                          L"Ascending", L"Ascending", L"Ascending"}));
    expected.merge(Texts(L"Sorting\\FileSortKeys\\", {L"Path", L"Name", L"Extension", L"Size", L"TimeCreated",
                                                      L"LastTimeAccessed", L"LastTimeWritten"}));
    expected.merge(Texts(
        L"Sorting\\FileSortOrder\\",
        {L"Ascending", L"Ascending", L"Ascending", L"Descending", L"Ascending", L"Ascending", L"Ascending"}));
    ExpectContents(registry, Key, expected);
}

TEST(PresetStorage, AChangedPresetIsStoredInFull) {
    TestRegistry registry;
    Preset preset(L"abc");
    ChangeEveryValue(preset);
    EXPECT_TRUE(preset.Save());
    Contents expected = {
        {L"Name", StringValue(L"Changed")},
        {L"Position", DwordValue(7)},
        {L"Format\\ListStyle", StringValue(L"Html")},
        {L"Format\\EnableUtf8", DwordValue(0)},
        {L"Display\\SearchSubfolders", DwordValue(1)},
        {L"Display\\SearchHidden", DwordValue(1)},
        {L"Display\\ShowStatistics", DwordValue(1)},
        {L"Display\\ShowFlatStyle", DwordValue(1)},
        {L"Display\\IndentSize", DwordValue(4000000000)},
        {L"Display\\SizeStyle", StringValue(L"TebiBytes")},
        {L"Columns\\ShowHeaders", DwordValue(0)},
        {L"Filter\\PresetSearchPattern", DwordValue(8)},
        {L"Filter\\CustomSearchPattern", StringValue(L"*.txt|*.doc")},
        {L"Filter\\ExcludedFolders", StringListValue({L"*\\one", L"*\\two"})},
        {L"Saving\\SaveLocation", StringValue(L"Custom")},
        {L"Saving\\CustomFolderPath", StringValue(L"C:\\Lists")},
        {L"Saving\\OverwriteExisting", DwordValue(1)},
        {L"Opening\\OpenMethod", StringValue(L"Nothing")},
        {L"Opening\\CustomProgramPath", StringValue(L"C:\\Tools\\view.exe")},
        {L"Sorting\\SortDigitsAsNumbers", DwordValue(1)},
    };
    expected.merge(Texts(L"Columns\\FolderColumns\\",
                         {L"NumberOfFoldersAndFiles", L"NumberOfFiles", L"NumberOfFolders",
                          L"LastTimeWritten", L"LastTimeAccessed", L"TimeCreated", L"Attributes", L"Size",
                          L"PathAndName", L"Name", L"Path", L"Number"}));
    expected.merge(Flags(L"Columns\\FolderEnabled\\", {0, 1, 0, 1, 0, 1, 0, 1, 0, 1, 0, 1}));
    expected.merge(
        Texts(L"Columns\\FileColumns\\",
              {L"LastTimeWritten", L"LastTimeAccessed", L"TimeCreated", L"Attributes", L"Size", L"Extension",
               L"FilenameWithoutExtension", L"PathAndFilename", L"Filename", L"Path", L"Number"}));
    expected.merge(Flags(L"Columns\\FileEnabled\\", {0, 1, 0, 1, 0, 1, 0, 1, 0, 1, 0}));
    expected.merge(
        Texts(L"Sorting\\FolderSortKeys\\",
              {L"NumberOfFoldersAndFiles", L"NumberOfFiles", L"NumberOfFolders", L"LastTimeWritten",
               L"LastTimeAccessed", L"TimeCreated", L"Size", L"Name", L"Path"}));
    expected.merge(Texts(L"Sorting\\FolderSortOrder\\",
                         {L"Descending", L"Descending", L"Ascending", L"Descending", L"Descending",
                          L"Descending", L"Descending", L"Descending", L"Descending"}));
    expected.merge(Texts(L"Sorting\\FileSortKeys\\", {L"LastTimeWritten", L"LastTimeAccessed", L"TimeCreated",
                                                      L"Size", L"Extension", L"Name", L"Path"}));
    expected.merge(
        Texts(L"Sorting\\FileSortOrder\\", {L"Descending", L"Descending", L"Descending", L"Ascending",
                                            L"Descending", L"Descending", L"Descending"}));
    ExpectContents(registry, Key, expected);
}

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
    expected.folderColumns[2] = 1;  // the default of that place, so a column stands twice in the array
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
