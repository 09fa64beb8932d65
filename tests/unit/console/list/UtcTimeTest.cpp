#include "console/list/UtcTime.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdio>
#include <string>

#include "RowSupport.h"
#include "support/Random.h"

namespace {

using RowSupport::Ticks;

std::string Shown(uint64_t ticks) {
    Console::UtcText memory;
    return std::string(Console::FormatUtc(Ticks(ticks), memory));
}

TEST(UtcTime, HasSevenDecimals) {
    EXPECT_EQ(Shown(134397435200213522), "2026-11-21T14:05:20.0213522Z");
    EXPECT_EQ(Shown(134397435200000000), "2026-11-21T14:05:20.0000000Z");
    EXPECT_EQ(Shown(133099639941234567), "2022-10-11T12:13:14.1234567Z");
    EXPECT_EQ(Shown(116444736000000000), "1970-01-01T00:00:00.0000000Z");
    EXPECT_EQ(Shown(116444735999999999), "1969-12-31T23:59:59.9999999Z");
}

TEST(UtcTime, KnowsLeapYears) {
    EXPECT_EQ(Shown(125962992000000000), "2000-02-29T12:00:00.0000000Z");
    EXPECT_EQ(Shown(94405823999999999), "1900-02-28T23:59:59.9999999Z");
    EXPECT_EQ(Shown(94405824000000000), "1900-03-01T00:00:00.0000000Z");
    EXPECT_EQ(Shown(133536384000000005), "2024-02-29T00:00:00.0000005Z");
    EXPECT_EQ(Shown(133485407990000000), "2023-12-31T23:59:59.0000000Z");
}

TEST(UtcTime, IsEmptyWithoutATimeAndBeyondTheYear9999) {
    EXPECT_EQ(Shown(0), "");
    EXPECT_EQ(Shown(1), "1601-01-01T00:00:00.0000001Z");
    EXPECT_EQ(Shown(2650467743999999999), "9999-12-31T23:59:59.9999999Z");
    EXPECT_EQ(Shown(2650467744000000000), "");
    EXPECT_EQ(Shown(INT64_MAX), "");
    EXPECT_EQ(Shown(uint64_t{1} << 63), "");
    EXPECT_EQ(Shown(UINT64_MAX), "");
}

// Against the system's own calendar.
TEST(UtcTime, IsTheSystemsDate) {
    ForRandomInputs(
        2000,
        [](Random& random) {
            const uint64_t ticks = 1 + random.Bits() % 2650467743999999999;
            const FILETIME time = Ticks(ticks);
            SYSTEMTIME utc = {};
            ASSERT_TRUE(FileTimeToSystemTime(&time, &utc));
            char expected[80];
            std::snprintf(expected, sizeof expected, "%04d-%02d-%02dT%02d:%02d:%02d.%07uZ", utc.wYear,
                          utc.wMonth, utc.wDay, utc.wHour, utc.wMinute, utc.wSecond,
                          static_cast<unsigned>(ticks % 10'000'000));
            EXPECT_EQ(Shown(ticks), expected) << ticks;
        });
}

}  // namespace

TEST(ParseUtc, ReadsWhatFormatUtcWrites) {
    for (const uint64_t ticks :
         {uint64_t{1}, uint64_t{0x01D0'0000'1234'5600}, uint64_t{2'650'467'743'999'999'999}}) {
        const FILETIME time = {static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
        Console::UtcText memory;
        FILETIME read = {};
        EXPECT_TRUE(Console::ParseUtc(Console::FormatUtc(time, memory), read));
        EXPECT_EQ(read.dwLowDateTime, time.dwLowDateTime);
        EXPECT_EQ(read.dwHighDateTime, time.dwHighDateTime);
    }
    FILETIME none = {1, 1};
    EXPECT_TRUE(Console::ParseUtc("", none));
    EXPECT_EQ(none.dwLowDateTime + none.dwHighDateTime, 0u);
}

TEST(ParseUtc, RefusesOtherTexts) {
    for (const char* text :
         {"2026", "2026-11-21T14:05:20Z", "2026-11-21 14:05:20.0213522Z", "2026-11-21T14:05:20.0213522",
          "2026-11-31T14:05:20.0213522Z", "2026-13-21T14:05:20.0213522Z", "2026-11-21T24:05:20.0213522Z",
          "2026-11-21T14:60:20.0213522Z", "2026-11-21T14:05:60.0213522Z", "1600-11-21T14:05:20.0213522Z",
          "2026-11-21T14:05:20.02135222Z", "x026-11-21T14:05:20.0213522Z"}) {
        FILETIME time;
        EXPECT_FALSE(Console::ParseUtc(text, time)) << text;
    }
}
