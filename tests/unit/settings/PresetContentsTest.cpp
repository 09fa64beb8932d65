#include <gtest/gtest.h>

#include <map>

#include "PresetValues.h"
#include "settings/Preset.h"
#include "support/TestRegistry.h"
#include "support/Text.h"

using namespace TestSupport;

namespace {

const std::wstring Key = L"Software\\Tamblewick\\abc";

using Contents = std::map<std::wstring, RegistryValue>;

// All values below a key under their paths.
void Collect(const TestRegistry& registry, const std::wstring& key, const std::wstring& prefix,
             Contents& contents) {
    for (const std::wstring& name : registry.ValueNames(key))
        contents.emplace(prefix + name, *registry.Get(key, name));
    for (const std::wstring& subkey : registry.Subkeys(key))
        Collect(registry, key + L"\\" + subkey, prefix + subkey + L"\\", contents);
}

// Compares the values under the key with the expected ones; there must be no others.
void ExpectContents(const TestRegistry& registry, const std::wstring& key, const Contents& expected) {
    Contents actual;
    Collect(registry, key, L"", actual);
    for (const auto& [path, value] : expected) {
        const auto found = actual.find(path);
        if (found == actual.end())
            ADD_FAILURE() << Utf8(path) << " is missing";
        else
            EXPECT_EQ(found->second, value) << Utf8(path);
    }
    for (const auto& [path, value] : actual)
        EXPECT_TRUE(expected.contains(path)) << Utf8(path) << " is too much";
}

Contents Texts(const std::wstring& path, const std::vector<std::wstring>& words) {
    Contents contents;
    for (size_t i = 0; i < words.size(); ++i)
        contents.emplace(path + std::to_wstring(i), StringValue(words[i]));
    return contents;
}

Contents Flags(const std::wstring& path, const std::vector<uint32_t>& flags) {
    Contents contents;
    for (size_t i = 0; i < flags.size(); ++i)
        contents.emplace(path + std::to_wstring(i), DwordValue(flags[i]));
    return contents;
}

TEST(PresetContents, ANewPresetIsStoredInFull) {
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

TEST(PresetContents, AChangedPresetIsStoredInFull) {
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

}  // namespace
