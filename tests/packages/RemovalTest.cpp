// The removal takes what the setup has installed and nothing else; what is in use at the next sign-in.
#include "packages/Installation.h"

using namespace Packaging;

namespace {

constexpr DWORD CompleteAtNextSignIn = ERROR_SUCCESS_REBOOT_REQUIRED;

class Removal : public Installation {
protected:
    // As Windows does at a sign-in: forgets the command and runs it.
    void SignIn(const fs::path& folder) const {
        const std::wstring command = AtNextSignIn(folder);
        RegDeleteKeyValueW(HKEY_CURRENT_USER, RunOnceKey.c_str(), (folder / L"uninstall.exe").c_str());
        EXPECT_EQ(RunProcess(command), 0u);
        for (int i = 0; i < 2000 && fs::exists(folder) && AtNextSignIn(folder).empty(); ++i)
            Sleep(10);
    }

    void ExpectRemovalWaits(const Names& names) const {
        EXPECT_EQ(NamesIn(installed), names);
        EXPECT_EQ(AtNextSignIn(installed), Quoted(installed / L"uninstall.exe") + L" /S");
        EXPECT_FALSE(fs::exists(shortcut));
        EXPECT_FALSE(KeyExists(HKEY_CURRENT_USER, UninstallKey));
    }
};

TEST_F(Removal, OfFilesThatAreNotInUseIsComplete) {
    Install();
    EXPECT_EQ(RunRemoval(installed), 0u);
    EXPECT_FALSE(fs::exists(installed));
    EXPECT_EQ(AtNextSignIn(installed), L"");
}

TEST_F(Removal, LeavesFilesOfOthersAndTheirFolder) {
    ASSERT_EQ(RunSetup(tools), 0u);
    const Contents others = {{L"notes.old", "1"},
                             {L"tamblewick.dll.old", "2"},
                             {L"tamblewick.dll.mine.old", "3"},
                             {L"tamblewick.dll.10.old", "4"},
                             {L"README.txt.bak", "5"},
                             {L"tamblewick.ini", "6"}};
    for (const auto& [name, bytes] : others)
        WriteFile(tools / name, bytes);
    EXPECT_EQ(RunRemoval(tools), 0u);
    EXPECT_EQ(ContentsOf(tools), others);
    EXPECT_FALSE(KeyExists(HKEY_CURRENT_USER, UninstallKey));
}

TEST_F(Removal, TakesWhatABrokenUpdateHasLeft) {
    Install();
    WriteFile(installed / L"tamblewick.exe.new", "new");
    WriteFile(installed / L"uninstall.exe.new", "new");
    WriteFile(installed / L"tamblewick.dll.1.old", "old");
    WriteFile(installed / L"README.txt.9.old", "old");
    EXPECT_EQ(RunRemoval(installed), 0u);
    EXPECT_FALSE(fs::exists(installed));
}

TEST_F(Removal, OfALoadedModuleIsCompletedAtTheNextSignIn) {
    Install();
    const HMODULE module = LoadLibraryW((installed / L"tamblewick.dll").c_str());
    ASSERT_NE(module, nullptr);
    EXPECT_EQ(RunRemoval(installed), CompleteAtNextSignIn);
    ExpectRemovalWaits({L"tamblewick.dll.1.old", L"uninstall.exe"});
    // Windows runs no longer commands.
    EXPECT_LE(AtNextSignIn(installed).size(), 260u);
    SignIn(installed);
    ExpectRemovalWaits({L"tamblewick.dll.1.old", L"uninstall.exe"});
    FreeLibrary(module);
    SignIn(installed);
    EXPECT_FALSE(fs::exists(installed));
    EXPECT_EQ(AtNextSignIn(installed), L"");
}

TEST_F(Removal, OfARunningProgramIsCompletedAtTheNextSignIn) {
    Install();
    {
        Process program(Quoted(installed / L"tamblewick.exe"), installed);
        const HWND window = GetAncestor(program.WaitForControl(AnyControl, L"Close"), GA_ROOT);
        EXPECT_EQ(RunRemoval(installed), CompleteAtNextSignIn);
        ExpectRemovalWaits({L"tamblewick.exe.1.old", L"uninstall.exe"});
        PostMessageW(window, WM_CLOSE, 0, 0);
    }
    SignIn(installed);
    EXPECT_FALSE(fs::exists(installed));
}

TEST_F(Removal, OfAFileThatCannotBeRenamedIsCompletedAtTheNextSignIn) {
    Install();
    {
        const LockedFile locked(installed / L"README.txt");
        EXPECT_EQ(RunRemoval(installed), CompleteAtNextSignIn);
        ExpectRemovalWaits({L"README.txt", L"uninstall.exe"});
    }
    SignIn(installed);
    EXPECT_FALSE(fs::exists(installed));
}

TEST_F(Removal, ThatWaitsIsCompletedByASecondOne) {
    Install();
    {
        const LockedFile locked(installed / L"tamblewick.exe");
        EXPECT_EQ(RunRemoval(installed), CompleteAtNextSignIn);
    }
    EXPECT_EQ(RunRemoval(installed), 0u);
    EXPECT_FALSE(fs::exists(installed));
    EXPECT_EQ(AtNextSignIn(installed), L"");
}

TEST_F(Removal, ThatWaitsIsUndoneByASetupIntoTheSameFolder) {
    ASSERT_EQ(RunSetup(tools), 0u);
    const HMODULE module = LoadLibraryW((tools / L"tamblewick.dll").c_str());
    EXPECT_EQ(RunRemoval(tools), CompleteAtNextSignIn);
    EXPECT_EQ(RunSetup(tools), 0u);
    EXPECT_EQ(AtNextSignIn(tools), L"");
    EXPECT_TRUE(ProgramRuns(tools));
    FreeLibrary(module);
    EXPECT_EQ(RunSetup(tools), 0u);
    EXPECT_EQ(NamesIn(tools), InstalledFiles);
}

TEST_F(Removal, OfAnOlderFolderLeavesTheShortcutAndTheEntryOfTheNewerOne) {
    ASSERT_EQ(RunSetup(tools), 0u);
    ASSERT_EQ(RunSetup(installed), 0u);
    EXPECT_EQ(RunRemoval(tools), 0u);
    EXPECT_FALSE(fs::exists(tools));
    EXPECT_TRUE(fs::exists(shortcut));
    EXPECT_EQ(registry.Get(UninstallKey, L"InstallLocation"), TestSupport::StringValue(installed.wstring()));
    EXPECT_TRUE(ProgramRuns(installed));
}

TEST_F(Removal, SaysThatFilesAreInUse) {
    Install();
    const LockedFile locked(installed / L"README.txt");
    Process window(RemovalCommand(installed) + L" _?=" + installed.wstring());
    EXPECT_TRUE(window.Press(IDOK, L"Uninstall"));
    EXPECT_NE(window.WaitForControl(AnyControl, L"still in use. They will be removed when you sign in"),
              nullptr);
    EXPECT_TRUE(window.Press(AnyControl, L"OK"));
    EXPECT_TRUE(window.Press(IDNO, L"No"));
    EXPECT_NE(window.WaitForControl(AnyControl, L"Completed"), nullptr);
    EXPECT_TRUE(window.Press(IDOK, L"Close"));
    EXPECT_EQ(window.Wait(), CompleteAtNextSignIn);
}

}  // namespace
