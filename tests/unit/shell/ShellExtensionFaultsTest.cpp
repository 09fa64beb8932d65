#include <gtest/gtest.h>

#include "FakeWin.h"
#include "RegisteredKeys.h"
#include "shell/ShellExtension.h"
#include "winlib/Windows.h"

#include <shellapi.h>

using FakeWin::Call;

namespace {

constexpr DWORD KeyRead = 0x20019;

class ShellExtensionFaults : public testing::Test {
protected:
    ShellExtensionFaults() { FakeWin::SetModulePath(L"C:\\Tools\\tamblewick.exe"); }

    static ShellExtension Extension() { return {RegisteredKeys::Name, RegisteredKeys::ClassId}; }

    const RegisteredKeys keys_;
};

TEST_F(ShellExtensionFaults, TheModulePathComesFromTheLongForm) {
    FakeWin::SetModulePath(L"C:\\TOOLS~1\\TAMBLE~1.EXE");
    FakeWin::SetLongPath(L"C:\\TOOLS~1\\TAMBLE~1.EXE", L"C:\\Tools and more\\tamblewick.exe");
    EXPECT_EQ(Extension().ModulePath, L"C:\\Tools and more\\tamblewick.dll");
}

TEST_F(ShellExtensionFaults, MakingOneTouchesNoRegistry) {
    FakeWin::ClearLog();
    const ShellExtension extension = Extension();
    for (const FakeWin::LoggedCall& logged : FakeWin::Log())
        EXPECT_NE(logged.call, Call::RegOpenKeyExW);
}

// The opened keys and the access to each, whatever the tests before gave.
void ExpectThreeOpens(const ShellExtension& extension, DWORD classAccess) {
    FakeWin::ClearLog();
    extension.IsRegistered();
    std::vector<std::pair<std::wstring, DWORD>> opens;
    for (const FakeWin::LoggedCall& logged : FakeWin::Log()) {
        EXPECT_NE(logged.call, Call::RegCreateKeyExW);
        EXPECT_NE(logged.call, Call::RegSetValueExW);
        if (logged.call == Call::RegOpenKeyExW)
            opens.emplace_back(logged.subject, logged.detail);
    }
    const std::wstring name = RegisteredKeys::Name;
    const std::vector<std::pair<std::wstring, DWORD>> expected = {
        {L"HKCR\\Directory\\shellex\\ContextMenuHandlers\\" + name, KeyRead},
        {L"HKCR\\Drive\\shellex\\ContextMenuHandlers\\" + name, KeyRead},
        {std::wstring(L"HKCR\\CLSID\\") + RegisteredKeys::ClassId + L"\\InProcServer32", classAccess},
    };
    EXPECT_EQ(opens, expected);
    EXPECT_EQ(FakeWin::OpenKeys(), 0);
}

TEST_F(ShellExtensionFaults, AllThreeTestsAreAlwaysMade) {
    const ShellExtension extension = Extension();
    ExpectThreeOpens(extension, KeyRead);
    keys_.Register(extension.ModulePath);
    ExpectThreeOpens(extension, KeyRead);
    keys_.Set(keys_.Directory, L"other");
    ExpectThreeOpens(extension, KeyRead);
}

TEST_F(ShellExtensionFaults, Only32BitsOn64LookIntoTheOtherView) {
    const ShellExtension extension = Extension();
    FakeWin::SetWow64(FakeWin::Wow64::Yes);
    ExpectThreeOpens(extension, KeyRead | 0x100);
    FakeWin::SetWow64(FakeWin::Wow64::No);
    ExpectThreeOpens(extension, KeyRead);
    FakeWin::SetWow64(FakeWin::Wow64::Absent);
    ExpectThreeOpens(extension, KeyRead);
}

TEST_F(ShellExtensionFaults, AKeyThatCannotBeOpenedFailsItsTest) {
    const ShellExtension extension = Extension();
    keys_.Register(extension.ModulePath);
    for (int use = 1; use <= 3; ++use) {
        ASSERT_TRUE(extension.IsRegistered());
        FakeWin::FailNth(Call::RegOpenKeyExW, use, ERROR_ACCESS_DENIED);
        EXPECT_FALSE(extension.IsRegistered()) << use;
    }
}

void ExpectExecution(const std::wstring& parameters) {
    const std::vector<FakeWin::ShellExecution> executions = FakeWin::ShellExecutions();
    ASSERT_EQ(executions.size(), 1u);
    const FakeWin::ShellExecution& execution = executions.front();
    EXPECT_EQ(execution.mask, 0x4440u);
    EXPECT_EQ(execution.owner, nullptr);
    EXPECT_EQ(execution.verb, L"runas");
    EXPECT_EQ(execution.file, L"regsvr32.exe");
    EXPECT_EQ(execution.parameters, parameters);
    EXPECT_EQ(execution.directory, std::nullopt);
    EXPECT_EQ(execution.show, 1);
    EXPECT_TRUE(execution.othersZero);
    EXPECT_EQ(execution.size, sizeof(SHELLEXECUTEINFOW));
}

TEST_F(ShellExtensionFaults, RegisterRunsRegsvr32) {
    EXPECT_TRUE(Extension().Register());
    ExpectExecution(L"\"/s\" \"C:\\Tools\\tamblewick.dll\"");
}

TEST_F(ShellExtensionFaults, UnregisterRunsRegsvr32) {
    EXPECT_TRUE(Extension().Unregister());
    ExpectExecution(L"\"/s\" \"/u\" \"C:\\Tools\\tamblewick.dll\"");
}

TEST_F(ShellExtensionFaults, SuccessIsWaitedForAndReportedToTheShell) {
    EXPECT_TRUE(Extension().Register());
    EXPECT_EQ(FakeWin::ProcessWaits(), std::vector<DWORD>{INFINITE});
    const std::vector<FakeWin::ShellNotification> notifications = FakeWin::ShellNotifications();
    ASSERT_EQ(notifications.size(), 1u);
    EXPECT_EQ(notifications[0].event, 0x8000000);
    EXPECT_EQ(notifications[0].flags, 0x3000u);
    EXPECT_EQ(notifications[0].first, nullptr);
    EXPECT_EQ(notifications[0].second, nullptr);
}

TEST_F(ShellExtensionFaults, AnotherExitCodeIsNotReportedToTheShell) {
    FakeWin::SetProcessExitCode(3);
    EXPECT_TRUE(Extension().Register());
    EXPECT_TRUE(Extension().Unregister());
    EXPECT_EQ(FakeWin::ProcessWaits().size(), 2u);
    EXPECT_TRUE(FakeWin::ShellNotifications().empty());
    EXPECT_FALSE(Extension().IsRegistered());
}

TEST_F(ShellExtensionFaults, ARefusedElevationIsFalseAndNothingMoreHappens) {
    FakeWin::Fail(Call::ShellExecuteExW, ERROR_CANCELLED);
    EXPECT_FALSE(Extension().Register());
    EXPECT_FALSE(Extension().Unregister());
    EXPECT_TRUE(FakeWin::ProcessWaits().empty());
    EXPECT_TRUE(FakeWin::ShellNotifications().empty());
}

TEST_F(ShellExtensionFaults, TheProcessHandlesStayOpen) {
    EXPECT_TRUE(Extension().Register());
    EXPECT_TRUE(Extension().Unregister());
    EXPECT_EQ(FakeWin::OpenProcesses(), 2);
}

TEST_F(ShellExtensionFaults, WhatTheModuleRegistersIsFoundAfterwards) {
    const ShellExtension extension = Extension();
    FakeWin::OnShellExecute([&](const FakeWin::ShellExecution&) { keys_.Register(extension.ModulePath); });
    EXPECT_TRUE(extension.Register());
    EXPECT_TRUE(extension.IsRegistered());
}

}  // namespace
