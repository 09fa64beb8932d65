// Which folder the setup takes, without a window and on its page, and that what others have put there stays.
#include "packages/Installation.h"

using namespace Packaging;

namespace {

constexpr int FolderEdit = 1019;
constexpr int FolderText = 1006;

const Contents OthersFiles = {{L"README.txt", "of others"}, {L"uninstall.exe", "of others, too"}};

void AddOthersFiles(const fs::path& folder) {
    for (const auto& [name, bytes] : OthersFiles)
        WriteFile(folder / name, bytes);
}

class Folder : public Installation {
protected:
    void ExpectInstalledInto(const fs::path& folder) const {
        EXPECT_EQ(NamesIn(folder), InstalledFiles);
        EXPECT_EQ(registry.Get(UninstallKey, L"InstallLocation"), TestSupport::StringValue(folder.wstring()));
    }

    // Nothing is known of an installation.
    void ExpectNothingInstalled() const {
        EXPECT_FALSE(KeyExists(HKEY_CURRENT_USER, UninstallKey));
        EXPECT_FALSE(fs::exists(shortcut));
    }

    const fs::path below = tools / L"Tamblewick";
};

TEST_F(Folder, OfOthersGetsAFolderBelow) {
    AddOthersFiles(tools);
    EXPECT_EQ(RunSetup(tools), 0u);
    ExpectInstalledInto(below);
    EXPECT_TRUE(ProgramRuns(below));
    fs::remove_all(below);
    EXPECT_EQ(ContentsOf(tools), OthersFiles);
}

TEST_F(Folder, BelowOneOfOthersIsUpdatedByTheSameCommand) {
    AddOthersFiles(tools);
    EXPECT_EQ(RunSetup(tools), 0u);
    WriteFile(below / L"README.txt", "older");
    EXPECT_EQ(RunSetup(tools), 0u);
    ExpectInstalledInto(below);
    EXPECT_NE(Bytes(below / L"README.txt"), "older");
}

TEST_F(Folder, OfOthersWithAnotherOfOthersBelowIsRefused) {
    AddOthersFiles(tools);
    AddOthersFiles(below);
    EXPECT_EQ(RunSetup(tools), 2u);
    EXPECT_EQ(ContentsOf(below), OthersFiles);
    fs::remove_all(below);
    EXPECT_EQ(ContentsOf(tools), OthersFiles);
    ExpectNothingInstalled();
}

TEST_F(Folder, WithASingleSubfolderIsOfOthersToo) {
    fs::create_directories(tools / L"something");
    EXPECT_EQ(RunSetup(tools), 0u);
    ExpectInstalledInto(below);
}

TEST_F(Folder, OfAPortableCopyIsNotOverwritten) {
    for (const wchar_t* name : {L"README.txt", L"tamblewick.dll", L"tamblewick.exe"})
        WriteFile(tools / name, "portable");
    EXPECT_EQ(RunSetup(tools), 0u);
    ExpectInstalledInto(below);
    EXPECT_EQ(Bytes(tools / L"tamblewick.exe"), "portable");
}

TEST_F(Folder, ThatIsEmptyIsTaken) {
    fs::create_directories(tools);
    EXPECT_EQ(RunSetup(tools), 0u);
    ExpectInstalledInto(tools);
}

TEST_F(Folder, ThatIsMissingIsMade) {
    EXPECT_EQ(RunSetup(tools / L"one" / L"two"), 0u);
    ExpectInstalledInto(tools / L"one" / L"two");
}

TEST_F(Folder, OfAnInstallationIsTakenAgainWithWhatIsInIt) {
    ASSERT_EQ(RunSetup(tools), 0u);
    WriteFile(tools / L"tamblewick.exe", "older");
    WriteFile(tools / L"notes.txt", "mine");
    // In capitals it is the same folder.
    EXPECT_EQ(RunSetup(L"C:\\TAMBLEWICK TOOLS"), 0u);
    EXPECT_TRUE(ProgramRuns(tools));
    EXPECT_EQ(Bytes(tools / L"notes.txt"), "mine");
    EXPECT_FALSE(fs::exists(below));
}

TEST_F(Folder, OnThePageIsNamedBeforeAnythingIsInstalled) {
    AddOthersFiles(tools);
    Process window(Quoted(setup));
    const HWND edit = window.WaitForControl(FolderEdit, L"");
    ASSERT_NE(edit, nullptr);
    EXPECT_EQ(TextOf(edit), installed.wstring());
    EXPECT_NE(window.WaitForControl(FolderText, L"Setup will install Tamblewick into this folder."), nullptr);
    SendMessageW(edit, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(tools.c_str()));
    EXPECT_NE(
        window.WaitForControl(FolderText, L"Setup will install Tamblewick into " + below.wstring() + L"."),
        nullptr);
    EXPECT_TRUE(window.Press(IDOK, L"Next"));
    EXPECT_NE(window.WaitForControl(IDOK, L"Install"), nullptr);
    EXPECT_FALSE(fs::exists(below));
    EXPECT_TRUE(window.Press(IDOK, L"Install"));
    EXPECT_NE(window.WaitForControl(AnyControl, L"Completed"), nullptr);
    EXPECT_TRUE(window.Press(IDOK, L"Close"));
    EXPECT_EQ(window.Wait(), 0u);
    ExpectInstalledInto(below);
    fs::remove_all(below);
    EXPECT_EQ(ContentsOf(tools), OthersFiles);
}

TEST_F(Folder, OnThePageCannotBeOneThatIsRefused) {
    AddOthersFiles(tools);
    AddOthersFiles(below);
    Process window(Quoted(setup));
    const HWND edit = window.WaitForControl(FolderEdit, L"");
    ASSERT_NE(edit, nullptr);
    SendMessageW(edit, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(tools.c_str()));
    EXPECT_NE(window.WaitForControl(FolderText, L"Choose another folder."), nullptr);
    const HWND next = window.WaitForControl(IDOK, L"Next");
    EXPECT_FALSE(IsWindowEnabled(next));
    SendMessageW(edit, WM_SETTEXT, 0, reinterpret_cast<LPARAM>((tools / L"new").c_str()));
    EXPECT_TRUE(IsWindowEnabled(next));
    EXPECT_TRUE(window.Press(IDCANCEL, L"Cancel"));
    EXPECT_EQ(window.Wait(), 1u);
    ExpectNothingInstalled();
    EXPECT_FALSE(fs::exists(tools / L"new"));
}

}  // namespace
