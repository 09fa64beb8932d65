// What the program makes of its command line: which arguments make a list, and the silence of all others.
#include <gtest/gtest.h>

#include "endtoend/Program.h"
#include "support/TempFolder.h"

using EndToEnd::FilesIn;
using EndToEnd::ListsFolder;
using EndToEnd::RunProgram;
using EndToEnd::StoredPreset;

namespace {

using Names = std::vector<std::wstring>;

struct CommandLine : testing::Test {
    CommandLine() {
        folder.AddFile(L"Some Folder\\inside.txt", 1);
        folder.AddFile(L"Some\\other.txt", 1);
        preset.FileColumns({L"Filename"});
    }

    // Whether the program ends with 0 and without any list.
    void ExpectSilence(const std::wstring& arguments) {
        EXPECT_EQ(RunProgram(arguments), 0u) << testing::PrintToString(arguments);
        EXPECT_EQ(FilesIn(ListsFolder()), Names{}) << testing::PrintToString(arguments);
    }

    TestSupport::TempFolder folder;
    StoredPreset preset;
};

TEST_F(CommandLine, OneArgumentEndsInSilence) {
    ExpectSilence(preset.Key);
    ExpectSilence(L"nothing-of-this-name");
}

TEST_F(CommandLine, UnknownKeyEndsInSilence) {
    ExpectSilence(L"unknown \"" + folder.Path() + L"\"");
    ExpectSilence(preset.Key + L"x \"" + folder.Path() + L"\"");
}

TEST_F(CommandLine, KeysAreCaseSensitive) {
    ExpectSilence(L"EndToEnd \"" + folder.Path() + L"\"");
}

TEST_F(CommandLine, EmptyQuotedKeyShiftsThePathIntoFirstPlace) {
    ExpectSilence(L"\"\" \"" + folder.Path() + L"\"");
}

TEST_F(CommandLine, QuotedPathKeepsItsBlank) {
    EXPECT_EQ(RunProgram(preset.Key + L" \"" + folder.Path() + L"\\Some Folder\""), 0u);
    EXPECT_EQ(FilesIn(ListsFolder()), Names{L"List of Some Folder.txt"});
}

TEST_F(CommandLine, UnquotedPathEndsAtItsBlank) {
    // A path without a blank but this one.
    const std::wstring folderInLists = ListsFolder() + L"\\Some";
    ASSERT_TRUE(CreateDirectoryW(folderInLists.c_str(), nullptr));
    EXPECT_EQ(RunProgram(preset.Key + L" " + folderInLists + L" Folder"), 0u);
    RemoveDirectoryW(folderInLists.c_str());
    EXPECT_EQ(FilesIn(ListsFolder()), Names{L"List of Some.txt"});
}

TEST_F(CommandLine, BackslashBeforeTheClosingQuoteIsAnOrdinaryCharacter) {
    EXPECT_EQ(RunProgram(preset.Key + L" \"" + folder.Path() + L"\\Some Folder\\\" third"), 0u);
    EXPECT_EQ(FilesIn(ListsFolder()), Names{L"List of .txt"});
    EXPECT_NE(EndToEnd::ReadFile(ListsFolder() + L"\\List of .txt").find("inside.txt"), std::string::npos);
}

TEST_F(CommandLine, FurtherArgumentsAreIgnored) {
    EXPECT_EQ(RunProgram(preset.Key + L"\t\"" + folder.Path() + L"\\Some\" a \"b c\""), 0u);
    EXPECT_EQ(FilesIn(ListsFolder()), Names{L"List of Some.txt"});
}

TEST_F(CommandLine, UnterminatedQuoteRunsToTheEnd) {
    EXPECT_EQ(RunProgram(preset.Key + L" \"" + folder.Path() + L"\\Some Folder"), 0u);
    EXPECT_EQ(FilesIn(ListsFolder()), Names{L"List of Some Folder.txt"});
}

TEST_F(CommandLine, BatchModeWritesNothingIntoTheRegistry) {
    EXPECT_EQ(RunProgram(preset.Key + L" \"" + folder.Path() + L"\\Some\""), 0u);
    HKEY root = nullptr;
    ASSERT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, L"Software\\Tamblewick", 0, KEY_READ, &root), ERROR_SUCCESS);
    DWORD subkeys = 0;
    DWORD values = 1;
    RegQueryInfoKeyW(root, nullptr, nullptr, nullptr, &subkeys, nullptr, nullptr, &values, nullptr, nullptr,
                     nullptr, nullptr);
    RegCloseKey(root);
    EXPECT_EQ(subkeys, 1u);
    EXPECT_EQ(values, 0u);
}

}  // namespace
