#include <gtest/gtest.h>

#include "FakeWin.h"
#include "support/Text.h"
#include "writers/DateTime.h"

namespace {

using TestSupport::Utf8;

TEST(DateTimeFaults, DateAndTimeArePartedByOneBlank) {
    FakeWin::Reset();
    EXPECT_EQ(Utf8(FormatFileTime(FakeWin::MakeFileTime(2020, 1, 2, 3, 4, 5))), "2020-01-02 03:04:05");
    EXPECT_EQ(Utf8(FormatFileTime({0, 0})), "1601-01-01 00:00:00");
    FakeWin::SetLocalTime({1999, 12, 5, 31, 23, 59, 58, 999});
    EXPECT_EQ(Utf8(FormatLocalTime()), "1999-12-31 23:59:58");
}

TEST(DateTimeFaults, WithoutADateTheTimeIsAlone) {
    FakeWin::Reset();
    FakeWin::FailNth(FakeWin::Call::GetDateFormatW, 1, ERROR_INVALID_PARAMETER);
    EXPECT_EQ(Utf8(FormatFileTime(FakeWin::MakeFileTime(2020, 1, 2, 3, 4, 5))), "03:04:05");
}

}  // namespace
