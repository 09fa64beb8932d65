// The world as a whole: Reset, threads, size.
#include <gtest/gtest.h>

#include <share.h>
#include <shellapi.h>

#include <cstdio>
#include <thread>

#include "ContractDialog.h"
#include "fakewin/FakeWin.h"
#include "fakewin/FakeWindows.h"
#include "winlib/Windows.h"

using FakeWin::Call;

TEST(FakeWorld, ResetForgetsEverything) {
    FakeWin::AddFile(L"D:\\x");
    FakeWin::Fail(Call::CompareStringW, 5);
    FakeWin::SetTickCount(7);
    FakeWin::HoldMessageBoxes();
    FakeWin::CreatePlainWindow();
    HKEY key = nullptr;
    RegCreateKeyExW(HKEY_CURRENT_USER, L"Software\\X", 0, nullptr, 0, KEY_WRITE, nullptr, &key, nullptr);
    LPWSTR text = nullptr;
    FormatMessageW(0x1300, nullptr, 5, 0x400, reinterpret_cast<LPWSTR>(&text), 0, nullptr);
    SHELLEXECUTEINFOW info = {};
    info.cbSize = sizeof info;
    info.lpFile = L"x";
    ShellExecuteExW(&info);
    EXPECT_EQ(FakeWin::LeftOpen(), "key HKCU\\Software\\X\nsystem text\n");

    FakeWin::Reset();
    EXPECT_EQ(FakeWin::LeftOpen(), "");
    EXPECT_FALSE(FakeWin::EntryExists(L"D:\\x"));
    EXPECT_TRUE(FakeWin::EntryExists(L"C:\\Temp"));
    EXPECT_EQ(CompareStringW(LOCALE_USER_DEFAULT, 0, L"a", -1, L"a", -1), CSTR_EQUAL);
    EXPECT_EQ(GetTickCount(), 0u);
    EXPECT_EQ(MessageBoxW(nullptr, L"", L"", MB_OK), IDOK);
    EXPECT_EQ(FakeWin::OpenWindows(), 0);
    EXPECT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, L"Software", 0, KEY_READ, &key), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(RegCloseKey(key), ERROR_INVALID_HANDLE);
    EXPECT_TRUE(FakeWin::ShellExecutions().empty());
}

TEST(FakeWorld, ServesManyThreads) {
    FakeWin::AddFile(L"C:\\Data\\file", 1);
    const auto work = [](int number) {
        const std::wstring name = L"C:\\Temp\\" + std::to_wstring(number);
        for (int i = 0; i < 200; ++i) {
            WIN32_FIND_DATAW data;
            const HANDLE find = FindFirstFileExW(LR"(\\?\C:\Data\*)", FindExInfoBasic, &data,
                                                 FindExSearchNameMatch, nullptr, 2);
            while (FindNextFileW(find, &data)) {
            }
            FindClose(find);
            FILE* const file = _wfsopen(name.c_str(), L"w", _SH_DENYNO);
            std::fputs("line\n", file);
            std::fclose(file);
            HKEY key = nullptr;
            RegCreateKeyExW(HKEY_CURRENT_USER, L"Software\\X", 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key,
                            nullptr);
            RegSetValueExW(key, L"Value", 0, REG_BINARY, reinterpret_cast<const BYTE*>(&i), sizeof i);
            RegCloseKey(key);
            CompareStringW(LOCALE_USER_DEFAULT, 0, L"a", -1, L"b", -1);
            GetTickCount();
        }
    };
    std::thread first(work, 1);
    std::thread second(work, 2);
    first.join();
    second.join();
    EXPECT_EQ(FakeWin::Uses(Call::FindFirstFileExW), 400);
    EXPECT_EQ(FakeWin::Contents(L"C:\\Temp\\1"), "line\r\n");
    EXPECT_EQ(FakeWin::LeftOpen(), "");
}

TEST(FakeWorld, AThreadTakesItsWindowsAlong) {
    HWND window = nullptr;
    std::thread([&] { window = FakeWin::CreatePlainWindow(); }).join();
    EXPECT_FALSE(IsWindow(window));
    EXPECT_EQ(SendMessageW(window, WM_APP, 0, 0), 0);
}

TEST(FakeWorld, HoldsAHundredThousandEntries) {
    constexpr int Count = 100'000;
    for (int i = 0; i < Count; ++i)
        FakeWin::AddFile(L"C:\\Data\\file " + std::to_wstring(i), static_cast<uint64_t>(i));
    WIN32_FIND_DATAW data;
    const HANDLE find =
        FindFirstFileExW(LR"(\\?\C:\Data\*)", FindExInfoBasic, &data, FindExSearchNameMatch, nullptr, 2);
    int entries = 1;
    uint64_t size = 0;
    while (FindNextFileW(find, &data)) {
        ++entries;
        size += data.nFileSizeLow;
    }
    FindClose(find);
    EXPECT_EQ(entries, Count + 2);
    EXPECT_EQ(size, uint64_t{Count} * (Count - 1) / 2);
}
