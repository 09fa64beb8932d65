#include <gtest/gtest.h>

#include "FakeWin.h"
#include "console/Commands.h"
#include "shell/ContextMenuClass.h"
#include "support/TestRegistry.h"
#include "winlib/RegistryKey.h"
#include "winlib/Windows.h"

using Console::ExitCode;
using Console::RunProgram;
using FakeWin::StandardError;
using FakeWin::StandardOutput;

namespace {

constexpr wchar_t Module[] = L"C:\\Tools\\tamblewick.dll";

void SetDefault(HKEY root, const std::wstring& path, const std::wstring& text) {
    RegistryKey key;
    RegCreateKeyExW(root, path.c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, key.Receive(), nullptr);
    RegSetValueExW(key.Get(), L"", 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                   static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
}

void Register(HKEY root, const std::wstring& module) {
    const std::wstring classes = L"Software\\Classes\\";
    for (const wchar_t* kind : {L"Directory", L"Drive"})
        SetDefault(root, classes + kind + L"\\shellex\\ContextMenuHandlers\\Tamblewick", ContextMenuClassId);
    SetDefault(root, classes + L"CLSID\\" + ContextMenuClassId + L"\\InProcServer32", module);
}

HRESULT InstallForUser(BOOL install, LPCWSTR text) {
    if (text != std::wstring(L"user"))
        return E_FAIL;
    if (install) {
        Register(HKEY_CURRENT_USER, Module);
    } else {
        RegistryKey classes;
        RegOpenKeyExW(HKEY_CURRENT_USER, L"Software\\Classes", 0, KEY_ALL_ACCESS, classes.Receive());
        for (const wchar_t* name : {L"Directory", L"Drive", L"CLSID"})
            classes.DeleteTree(name);
    }
    return S_OK;
}

HRESULT RefuseToInstall(BOOL, LPCWSTR) {
    return E_FAIL;
}

struct MenuCommand : testing::Test {
    MenuCommand() {
        FakeWin::SetModulePath(L"C:\\Tools\\tamblewickc.exe");
        FakeWin::SetInstallModule(Module, InstallForUser);
    }
    ~MenuCommand() override { EXPECT_EQ(FakeWin::LoadedModules(), 0); }

    static void ExpectStatus(const std::string& status) {
        const size_t before = StandardOutput().size();
        EXPECT_EQ(RunProgram({L"menu", L"status"}), ExitCode::Complete);
        EXPECT_EQ(StandardOutput().substr(before), status + "\n");
    }
};

TEST_F(MenuCommand, IsOffAtFirst) {
    ExpectStatus("off");
}

TEST_F(MenuCommand, IsSwitchedOnAndOffForTheUser) {
    EXPECT_EQ(RunProgram({L"menu", L"on"}), ExitCode::Complete);
    ExpectStatus("on, for me");
    EXPECT_EQ(RunProgram({L"menu", L"off"}), ExitCode::Complete);
    ExpectStatus("off");
    EXPECT_EQ(StandardError(), "");
    EXPECT_TRUE(FakeWin::ShellExecutions().empty());
}

TEST_F(MenuCommand, IsOnForAllUsersByTheClassesOfTheMachine) {
    Register(HKEY_LOCAL_MACHINE, Module);
    ExpectStatus("on, for all users");
    EXPECT_EQ(RunProgram({L"menu", L"off"}), ExitCode::Complete);
    EXPECT_EQ(StandardError(), "tamblewickc: the menu is still on, for all users\n");
    Register(HKEY_CURRENT_USER, Module);
    ExpectStatus("on, for me");
}

TEST_F(MenuCommand, TheModuleOfAnotherCopyIsNamed) {
    Register(HKEY_CURRENT_USER, L"D:\\Other\\tamblewick.dll");
    ExpectStatus("on, by another copy: D:\\Other\\tamblewick.dll");
    EXPECT_EQ(RunProgram({L"menu", L"on"}), ExitCode::Complete);
    ExpectStatus("on, for me");
}

TEST_F(MenuCommand, PathsOfModulesAreComparedWithoutCase) {
    Register(HKEY_CURRENT_USER, L"c:\\TOOLS\\Tamblewick.DLL");
    ExpectStatus("on, for me");
}

TEST_F(MenuCommand, IsOffIfAPartOfTheRegistrationIsMissing) {
    for (const wchar_t* missing : {L"Directory", L"Drive", L"CLSID"}) {
        Register(HKEY_CURRENT_USER, Module);
        RegistryKey classes;
        RegOpenKeyExW(HKEY_CURRENT_USER, L"Software\\Classes", 0, KEY_ALL_ACCESS, classes.Receive());
        classes.DeleteTree(missing);
        ExpectStatus("off");
    }
}

TEST_F(MenuCommand, AMissingModuleIsAnError) {
    FakeWin::SetInstallModule(L"", nullptr);
    EXPECT_EQ(RunProgram({L"menu", L"on"}), ExitCode::NotWritten);
    EXPECT_EQ(
        StandardError(),
        "tamblewickc: the module 'C:\\Tools\\tamblewick.dll' cannot be loaded; install Tamblewick again\n");
}

TEST_F(MenuCommand, AModuleThatFailsIsAnError) {
    FakeWin::SetInstallModule(Module, RefuseToInstall);
    EXPECT_EQ(RunProgram({L"menu", L"off"}), ExitCode::NotWritten);
    EXPECT_EQ(StandardError(),
              "tamblewickc: the module 'C:\\Tools\\tamblewick.dll' could not change the menus; the registry "
              "refused\n");
}

TEST_F(MenuCommand, AllUsersNeedAdministratorRights) {
    FakeWin::Fail(FakeWin::Call::ShellExecuteExW, 1223);
    EXPECT_EQ(RunProgram({L"menu", L"on", L"--all-users"}), ExitCode::NotWritten);
    EXPECT_EQ(StandardError(),
              "tamblewickc: the menu for all users is not changed; it needs administrator rights\n");
}

TEST_F(MenuCommand, AllUsersGoThroughTheProgramOfTheSystem) {
    FakeWin::OnShellExecute([](const FakeWin::ShellExecution&) { Register(HKEY_LOCAL_MACHINE, Module); });
    EXPECT_EQ(RunProgram({L"menu", L"on", L"--all-users"}), ExitCode::Complete);
    ASSERT_EQ(FakeWin::ShellExecutions().size(), 1u);
    EXPECT_EQ(FakeWin::ShellExecutions()[0].file, L"regsvr32.exe");
    EXPECT_EQ(FakeWin::ShellExecutions()[0].parameters, L"\"/s\" \"C:\\Tools\\tamblewick.dll\"");
}

TEST_F(MenuCommand, ARegistrationForAllUsersWithoutEffectIsAnError) {
    EXPECT_EQ(RunProgram({L"menu", L"on", L"--all-users"}), ExitCode::NotWritten);
    EXPECT_EQ(StandardError(),
              "tamblewickc: the menu for all users could not be changed; run 'tamblewickc menu' as an "
              "administrator\n");
}

TEST_F(MenuCommand, OffNamesWhatRemains) {
    FakeWin::SetInstallModule(Module, [](BOOL, LPCWSTR) -> HRESULT { return S_OK; });
    Register(HKEY_CURRENT_USER, L"D:\\Other\\tamblewick.dll");
    EXPECT_EQ(RunProgram({L"menu", L"off"}), ExitCode::Complete);
    EXPECT_EQ(StandardError(),
              "tamblewickc: the menu is still on, by another copy: D:\\Other\\tamblewick.dll\n");
}

}  // namespace
