#include "writers/DateTime.h"

#include <gtest/gtest.h>

#include <string>

#include "support/Text.h"
#include "support/lists/ListSupport.h"

namespace {

FILETIME Ticks(uint64_t ticks) {
    return {static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
}

TEST(DateTime, ShowsFileTimesInUtcByTheUsersLocale) {
    struct Row {
        uint64_t ticks;
        SYSTEMTIME utc;
    };
    const Row rows[] = {
        {0, {1601, 1, 1, 1, 0, 0, 0, 0}},
        {116444736000000000, {1970, 1, 4, 1, 0, 0, 0, 0}},
        {132593348960000000, {2021, 3, 4, 4, 12, 34, 56, 0}},
        {125911583990000000, {1999, 12, 5, 31, 23, 59, 59, 0}},
    };
    for (const Row& row : rows) {
        const std::string shown = TestSupport::Utf8(FormatFileTime(Ticks(row.ticks)));
        EXPECT_EQ(shown, ShownTime(row.utc));
        EXPECT_NE(shown.find(std::to_string(row.utc.wYear % 100)), std::string::npos) << shown;
    }
}

TEST(DateTime, ShowsThePresentMomentInLocalTime) {
    // The second may change between two looks at the clock.
    std::string before, shown, after;
    do {
        SYSTEMTIME now = {};
        GetLocalTime(&now);
        before = ShownTime(now);
        shown = TestSupport::Utf8(FormatLocalTime());
        GetLocalTime(&now);
        after = ShownTime(now);
    } while (before != after);
    EXPECT_EQ(shown, before);
}

TEST(DateTime, SharesOneBuffer) {
    const wchar_t* const first = FormatFileTime(Ticks(0));
    EXPECT_EQ(FormatFileTime(Ticks(132593348960000000)), first);
    EXPECT_EQ(FormatLocalTime(), first);
}

}  // namespace
