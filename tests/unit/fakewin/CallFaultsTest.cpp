// Counting calls, and making them fail.
#include <gtest/gtest.h>

#include "fakewin/FakeWin.h"
#include "winlib/Windows.h"

using FakeWin::Call;

namespace {

DWORD AttributesError(const wchar_t* path) {
    SetLastError(0);
    return GetFileAttributesW(path) == INVALID_FILE_ATTRIBUTES ? GetLastError() : 0;
}

int Equal() {
    return CompareStringW(LOCALE_USER_DEFAULT, 0, L"a", -1, L"a", -1);
}

}  // namespace

TEST(CallFaults, CountsEachUse) {
    EXPECT_EQ(FakeWin::Uses(Call::CompareStringW), 0);
    Equal();
    Equal();
    EXPECT_EQ(FakeWin::Uses(Call::CompareStringW), 2);
    EXPECT_EQ(FakeWin::Uses(Call::GetFileAttributesW), 0);
}

TEST(CallFaults, TheNthUseFailsAlone) {
    FakeWin::FailNth(Call::CompareStringW, 2, ERROR_INVALID_PARAMETER);
    EXPECT_EQ(Equal(), CSTR_EQUAL);
    EXPECT_EQ(Equal(), 0);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_PARAMETER));
    EXPECT_EQ(Equal(), CSTR_EQUAL);
}

TEST(CallFaults, EachUseInTurnCanFail) {
    FakeWin::FailNth(Call::CompareStringW, 1, 5);
    FakeWin::FailNth(Call::CompareStringW, 3, 6);
    EXPECT_EQ(Equal(), 0);
    EXPECT_EQ(Equal(), CSTR_EQUAL);
    EXPECT_EQ(Equal(), 0);
    EXPECT_EQ(GetLastError(), 6u);
}

TEST(CallFaults, AnActionRunsInsideOneUse) {
    int usesBefore = 0;
    FakeWin::AtUse(Call::CompareStringW, 2, [&] { usesBefore = FakeWin::Uses(Call::CompareStringW); });
    Equal();
    EXPECT_EQ(usesBefore, 0);
    Equal();
    Equal();
    EXPECT_EQ(usesBefore, 2);
}

TEST(CallFaults, FailsSoManyTimesOrAlways) {
    FakeWin::Fail(Call::CompareStringW, 5, 2);
    EXPECT_EQ(Equal() + Equal(), 0);
    EXPECT_EQ(Equal(), CSTR_EQUAL);
    FakeWin::Fail(Call::CompareStringW, 5);
    for (int i = 0; i < 10; ++i)
        EXPECT_EQ(Equal(), 0);
}

TEST(CallFaults, FailsForOneSubjectInAnyCase) {
    FakeWin::AddFolder(L"C:\\Data");
    FakeWin::FailOn(Call::GetFileAttributesW, L"c:\\DATA", ERROR_ACCESS_DENIED);
    EXPECT_EQ(AttributesError(L"C:\\Data"), static_cast<DWORD>(ERROR_ACCESS_DENIED));
    EXPECT_EQ(AttributesError(LR"(\\?\C:\Data)"), static_cast<DWORD>(ERROR_ACCESS_DENIED));
    EXPECT_EQ(AttributesError(L"C:\\Temp"), 0u);
    EXPECT_EQ(AttributesError(L"C:\\"), 0u);
}

TEST(CallFaults, SeveralErrorsForOneSubjectFollowOneAnother) {
    FakeWin::FailOn(Call::GetFileAttributesW, L"C:\\Temp", 50, 2);
    FakeWin::FailOn(Call::GetFileAttributesW, L"C:\\Temp", 5, 1);
    EXPECT_EQ(AttributesError(L"C:\\Temp"), 50u);
    EXPECT_EQ(AttributesError(L"C:\\Temp"), 50u);
    EXPECT_EQ(AttributesError(L"C:\\Temp"), 5u);
    EXPECT_EQ(AttributesError(L"C:\\Temp"), 0u);
}

TEST(CallFaults, LogsWhatWasTouched) {
    FakeWin::FailOn(Call::GetFileAttributesW, L"C:\\Temp", 5);
    GetFileAttributesW(L"C:\\Temp");
    HKEY key = nullptr;
    RegOpenKeyExW(HKEY_CURRENT_USER, L"Software\\Nothing\\", 0, KEY_READ, &key);
    Equal();
    const std::vector<FakeWin::LoggedCall> log = FakeWin::Log();
    ASSERT_EQ(log.size(), 2u);
    EXPECT_EQ(log[0].call, Call::GetFileAttributesW);
    EXPECT_EQ(log[0].subject, L"C:\\Temp");
    EXPECT_EQ(log[0].error, 5u);
    EXPECT_EQ(log[1].call, Call::RegOpenKeyExW);
    EXPECT_EQ(log[1].subject, L"HKCU\\Software\\Nothing");
    EXPECT_EQ(log[1].detail, static_cast<DWORD>(KEY_READ));
    EXPECT_EQ(log[1].error, static_cast<DWORD>(ERROR_FILE_NOT_FOUND));
    FakeWin::ClearLog();
    EXPECT_TRUE(FakeWin::Log().empty());
}

TEST(CallFaults, TestCodeCanStayUnwatched) {
    FakeWin::Fail(Call::CompareStringW, 5);
    {
        const FakeWin::Unwatched unwatched;
        EXPECT_EQ(Equal(), CSTR_EQUAL);
        GetFileAttributesW(L"C:\\Temp");
    }
    EXPECT_EQ(FakeWin::Uses(Call::CompareStringW), 0);
    EXPECT_TRUE(FakeWin::Log().empty());
    EXPECT_EQ(Equal(), 0);
}

TEST(CallFaults, SimpleCallsFailInTheirOwnWay) {
    wchar_t buffer[64];
    SYSTEMTIME time = {};
    const FILETIME zero = {};
    LPWSTR text = nullptr;
    for (const Call call :
         {Call::GetTempPathW, Call::GetModuleFileNameW, Call::GetLongPathNameW, Call::GetDateFormatW,
          Call::GetTimeFormatW, Call::FormatMessageW, Call::FileTimeToSystemTime, Call::GetModuleHandleW,
          Call::GetDesktopWindow, Call::PostMessageW})
        FakeWin::Fail(call, 31);
    EXPECT_EQ(GetTempPathW(64, buffer), 0u);
    EXPECT_EQ(GetModuleFileNameW(nullptr, buffer, 64), 0u);
    EXPECT_EQ(GetLongPathNameW(L"C:\\Temp", buffer, 64), 0u);
    EXPECT_EQ(GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &time, nullptr, buffer, 64), 0);
    EXPECT_EQ(GetTimeFormatW(LOCALE_USER_DEFAULT, 0, &time, nullptr, buffer, 64), 0);
    EXPECT_EQ(FormatMessageW(0x1300, nullptr, 5, 0x400, reinterpret_cast<LPWSTR>(&text), 0, nullptr), 0u);
    EXPECT_FALSE(FileTimeToSystemTime(&zero, &time));
    EXPECT_EQ(GetModuleHandleW(L"kernel32"), nullptr);
    EXPECT_EQ(GetDesktopWindow(), nullptr);
    EXPECT_FALSE(PostMessageW(nullptr, WM_APP, 0, 0));
    EXPECT_EQ(GetLastError(), 31u);
}

TEST(CallFaults, CountsTheFaultsThatHaveStruck) {
    FakeWin::FailNth(Call::CompareStringW, 2, 5);
    FakeWin::FailOn(Call::GetFileAttributesW, L"C:\\Temp", 5, 1);
    Equal();
    EXPECT_EQ(FakeWin::FaultsStruck(), 0);
    Equal();
    EXPECT_EQ(FakeWin::FaultsStruck(), 1);
    AttributesError(L"C:\\Temp");
    AttributesError(L"C:\\Temp");
    EXPECT_EQ(FakeWin::FaultsStruck(), 2);
    FakeWin::Reset();
    EXPECT_EQ(FakeWin::FaultsStruck(), 0);
}

TEST(CallFaults, EveryCallHasItsName) {
    EXPECT_STREQ(FakeWin::NameOf(Call::GetFileAttributesW), "GetFileAttributesW");
    EXPECT_STREQ(FakeWin::NameOf(Call::CloseFile), "CloseFile");
    EXPECT_STREQ(FakeWin::NameOf(Call::GetDesktopWindow), "GetDesktopWindow");
}
