// Times as numbers and as text.
#include <gtest/gtest.h>

#include <cwchar>

#include "winlib/Windows.h"

namespace {

struct Row {
    FILETIME time;
    SYSTEMTIME parts;
};

constexpr Row Rows[] = {
    {{0, 0}, {1601, 1, 1, 1, 0, 0, 0, 0}},
    {{0xD53E8000, 0x019DB1DE}, {1970, 1, 4, 1, 0, 0, 0, 0}},
    {{0x4F732C00, 0x01DA6002}, {2024, 2, 4, 15, 11, 30, 0, 0}},
};

}  // namespace

TEST(TimeContract, TakesATimeApart) {
    for (const Row& row : Rows) {
        SYSTEMTIME parts = {};
        EXPECT_TRUE(FileTimeToSystemTime(&row.time, &parts));
        FILETIME back = {};
        EXPECT_TRUE(SystemTimeToFileTime(&parts, &back));
        EXPECT_EQ(parts.wYear, row.parts.wYear);
        EXPECT_EQ(parts.wMonth, row.parts.wMonth) << row.parts.wYear;
        EXPECT_EQ(parts.wDayOfWeek, row.parts.wDayOfWeek) << row.parts.wYear;
        EXPECT_EQ(parts.wDay, row.parts.wDay) << row.parts.wYear;
        EXPECT_EQ(parts.wHour, row.parts.wHour) << row.parts.wYear;
        EXPECT_EQ(parts.wMinute, row.parts.wMinute) << row.parts.wYear;
        EXPECT_EQ(parts.wSecond, row.parts.wSecond) << row.parts.wYear;
        EXPECT_EQ(parts.wMilliseconds, row.parts.wMilliseconds) << row.parts.wYear;
        EXPECT_EQ(CompareFileTime(&back, &row.time), 0) << row.parts.wYear;
    }
}

TEST(TimeContract, LeapDaysCount) {
    const SYSTEMTIME february = {2024, 2, 0, 29, 23, 59, 59, 999};
    FILETIME time = {};
    ASSERT_TRUE(SystemTimeToFileTime(&february, &time));
    time.dwLowDateTime += 10000;
    SYSTEMTIME next = {};
    ASSERT_TRUE(FileTimeToSystemTime(&time, &next));
    EXPECT_EQ(next.wMonth, 3);
    EXPECT_EQ(next.wDay, 1);
    EXPECT_EQ(next.wMilliseconds, 0);
}

TEST(TimeContract, ATimeBeyondTheCalendarFails) {
    const FILETIME never = {0xFFFFFFFF, 0xFFFFFFFF};
    SYSTEMTIME parts;
    EXPECT_FALSE(FileTimeToSystemTime(&never, &parts));
}

TEST(TimeContract, ComparesTimes) {
    const FILETIME early = {0xFFFFFFFF, 1};
    const FILETIME late = {0, 2};
    EXPECT_LT(CompareFileTime(&early, &late), 0);
    EXPECT_GT(CompareFileTime(&late, &early), 0);
    EXPECT_EQ(CompareFileTime(&late, &late), 0);
}

TEST(TimeContract, TextsCountTheirTerminator) {
    const SYSTEMTIME time = {2024, 3, 6, 9, 17, 5, 9, 0};
    wchar_t buffer[64];
    const int date = GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &time, nullptr, buffer, 64);
    ASSERT_GT(date, 1);
    EXPECT_EQ(std::wcslen(buffer) + 1, static_cast<size_t>(date));
    const int clock = GetTimeFormatW(LOCALE_USER_DEFAULT, 0, &time, nullptr, buffer, 64);
    ASSERT_GT(clock, 1);
    EXPECT_EQ(std::wcslen(buffer) + 1, static_cast<size_t>(clock));
    EXPECT_EQ(GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &time, nullptr, buffer, 2), 0);
}
