// Recorded programs and notifications, hand-turned clocks.
#include <gtest/gtest.h>

#include <shellapi.h>
#include <shlobj.h>

#include "fakewin/FakeWin.h"
#include "winlib/Windows.h"

using FakeWin::Call;

namespace {

SHELLEXECUTEINFOW Info(ULONG mask) {
    SHELLEXECUTEINFOW info = {};
    info.cbSize = sizeof info;
    info.fMask = mask;
    info.lpFile = L"\"C:\\list.txt\"";
    info.nShow = SW_SHOWNORMAL;
    return info;
}

}  // namespace

TEST(FakeShell, RecordsAllFields) {
    SHELLEXECUTEINFOW info = Info(SEE_MASK_FLAG_NO_UI);
    EXPECT_TRUE(ShellExecuteExW(&info));
    info.lpVerb = L"runas";
    info.lpParameters = L"a b";
    info.lpDirectory = L"C:\\";
    info.dwHotKey = 1;
    EXPECT_TRUE(ShellExecuteExW(&info));
    const std::vector<FakeWin::ShellExecution> all = FakeWin::ShellExecutions();
    ASSERT_EQ(all.size(), 2u);
    EXPECT_EQ(all[0].size, sizeof info);
    EXPECT_EQ(all[0].mask, static_cast<ULONG>(SEE_MASK_FLAG_NO_UI));
    EXPECT_EQ(all[0].file, L"\"C:\\list.txt\"");
    EXPECT_EQ(all[0].verb, std::nullopt);
    EXPECT_EQ(all[0].parameters, std::nullopt);
    EXPECT_EQ(all[0].directory, std::nullopt);
    EXPECT_EQ(all[0].show, SW_SHOWNORMAL);
    EXPECT_TRUE(all[0].othersZero);
    EXPECT_EQ(all[1].verb, L"runas");
    EXPECT_EQ(all[1].parameters, L"a b");
    EXPECT_EQ(all[1].directory, L"C:\\");
    EXPECT_FALSE(all[1].othersZero);
}

TEST(FakeShell, AProcessCanBeWaitedForAndClosed) {
    FakeWin::SetProcessExitCode(3);
    SHELLEXECUTEINFOW info = Info(SEE_MASK_NOCLOSEPROCESS);
    ASSERT_TRUE(ShellExecuteExW(&info));
    EXPECT_EQ(FakeWin::OpenProcesses(), 1);
    DWORD code = 0;
    EXPECT_TRUE(GetExitCodeProcess(info.hProcess, &code));
    EXPECT_EQ(code, static_cast<DWORD>(STILL_ACTIVE));
    EXPECT_EQ(WaitForSingleObject(info.hProcess, INFINITE), static_cast<DWORD>(WAIT_OBJECT_0));
    EXPECT_TRUE(GetExitCodeProcess(info.hProcess, &code));
    EXPECT_EQ(code, 3u);
    EXPECT_TRUE(CloseHandle(info.hProcess));
    EXPECT_FALSE(CloseHandle(info.hProcess));
    EXPECT_EQ(FakeWin::OpenProcesses(), 0);
    EXPECT_EQ(FakeWin::ProcessWaits(), std::vector<DWORD>{INFINITE});
}

TEST(FakeShell, WithoutTheFlagThereIsNoProcess) {
    SHELLEXECUTEINFOW info = Info(0);
    EXPECT_TRUE(ShellExecuteExW(&info));
    EXPECT_EQ(info.hProcess, nullptr);
}

TEST(FakeShell, AFailureIsRecordedAndRunsNothing) {
    bool ran = false;
    FakeWin::OnShellExecute([&](const FakeWin::ShellExecution&) { ran = true; });
    FakeWin::Fail(Call::ShellExecuteExW, ERROR_CANCELLED, 1);
    SHELLEXECUTEINFOW info = Info(0);
    EXPECT_FALSE(ShellExecuteExW(&info));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_CANCELLED));
    EXPECT_FALSE(ran);
    EXPECT_TRUE(ShellExecuteExW(&info));
    EXPECT_TRUE(ran);
    EXPECT_EQ(FakeWin::ShellExecutions().size(), 2u);
}

TEST(FakeShell, RecordsNotifications) {
    SHChangeNotify(SHCNE_ASSOCCHANGED, SHCNF_FLUSHNOWAIT, nullptr, nullptr);
    ASSERT_EQ(FakeWin::ShellNotifications().size(), 1u);
    EXPECT_EQ(FakeWin::ShellNotifications()[0].event, SHCNE_ASSOCCHANGED);
    EXPECT_EQ(FakeWin::ShellNotifications()[0].flags, 0x3000u);
}

TEST(FakeShell, ReportsTheBitnessThatIsSet) {
    using Function = BOOL (*)(HANDLE, PBOOL);
    const auto find = [] {
        return reinterpret_cast<Function>(
            reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"kernel32"), "IsWow64Process")));
    };
    BOOL answer = TRUE;
    EXPECT_TRUE(find()(GetCurrentProcess(), &answer));
    EXPECT_FALSE(answer);
    FakeWin::SetWow64(FakeWin::Wow64::Yes);
    EXPECT_TRUE(find()(GetCurrentProcess(), &answer));
    EXPECT_TRUE(answer);
    FakeWin::SetWow64(FakeWin::Wow64::Absent);
    EXPECT_EQ(find(), nullptr);
    EXPECT_EQ(GetProcAddress(GetModuleHandleW(L"KERNEL32.dll"), "Other"), nullptr);
    EXPECT_EQ(GetModuleHandleW(L"other"), nullptr);
}

TEST(FakeClock, TurnsByHandAndWraps) {
    EXPECT_EQ(GetTickCount(), 0u);
    FakeWin::SetTickCount(0xFFFFFFF0);
    FakeWin::AdvanceTickCount(0x20);
    EXPECT_EQ(GetTickCount(), 0x10u);
    FakeWin::SetTickStep(51);
    EXPECT_EQ(GetTickCount(), 0x10u);
    EXPECT_EQ(GetTickCount(), 0x10u + 51);
}

TEST(FakeClock, SleepIsRecordedAndMovesNothing) {
    Sleep(25);
    Sleep(0);
    EXPECT_EQ(FakeWin::Sleeps(), (std::vector<DWORD>{25, 0}));
    EXPECT_EQ(GetTickCount(), 0u);
}

TEST(FakeClock, TheLocalTimeAndItsTextsAreFixed) {
    SYSTEMTIME time;
    GetLocalTime(&time);
    wchar_t buffer[32];
    EXPECT_EQ(GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &time, nullptr, buffer, 32), 11);
    EXPECT_STREQ(buffer, L"2024-03-09");
    EXPECT_EQ(GetTimeFormatW(LOCALE_USER_DEFAULT, 0, &time, nullptr, buffer, 32), 9);
    EXPECT_STREQ(buffer, L"17:05:09");
    FakeWin::SetLocalTime({1999, 12, 5, 31, 23, 59, 58, 0});
    GetLocalTime(&time);
    EXPECT_EQ(time.wYear, 1999);
}
