#include "console/Utf8.h"

#include <gtest/gtest.h>

#include "support/Text.h"

using Console::FromUtf8;
using Console::ToUtf8;

TEST(ConsoleUtf8, ConvertsTextOfAllPlanes) {
    EXPECT_EQ(ToUtf8(L"a\u00E9\u20AC"), "a\xC3\xA9\xE2\x82\xAC");
    EXPECT_EQ(ToUtf8(std::wstring{0xD83D, 0xDE00}), "\xF0\x9F\x98\x80");
    EXPECT_EQ(FromUtf8("a\xC3\xA9\xE2\x82\xAC"), L"a\u00E9\u20AC");
    EXPECT_EQ(FromUtf8("\xF0\x9F\x98\x80"), (std::wstring{0xD83D, 0xDE00}));
    EXPECT_EQ(ToUtf8(L""), "");
    EXPECT_EQ(FromUtf8(""), L"");
}

TEST(ConsoleUtf8, ReplacesEachHalfOfASurrogatePair) {
    const std::string replacement = "\xEF\xBF\xBD";
    EXPECT_EQ(ToUtf8(std::wstring{L'a', 0xD83D}), "a" + replacement);
    EXPECT_EQ(ToUtf8(std::wstring{0xD83D, L'a'}), replacement + "a");
    EXPECT_EQ(ToUtf8(std::wstring{0xDE00, L'a'}), replacement + "a");
    EXPECT_EQ(ToUtf8(std::wstring{0xDE00, 0xD83D}), replacement + replacement);
    EXPECT_EQ(ToUtf8(std::wstring{0xD83D, 0xD83D, 0xDE00}), replacement + "\xF0\x9F\x98\x80");
}

TEST(ConsoleUtf8, ReplacesInvalidBytes) {
    EXPECT_EQ(FromUtf8("a\xFF"), L"a\uFFFD");
    EXPECT_EQ(FromUtf8("\xC3"), L"\uFFFD");
}
