// Comparing and lowering text.
#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "support/Text.h"
#include "winlib/Windows.h"

using TestSupport::Utf8;

namespace {

constexpr DWORD Natural = NORM_IGNORECASE | SORT_DIGITSASNUMBERS;

int Compare(const wchar_t* first, const wchar_t* second, DWORD flags) {
    return CompareStringW(LOCALE_USER_DEFAULT, flags, first, -1, second, -1);
}

wchar_t Lower(int unit) {
    const auto value = static_cast<ULONG_PTR>(unit);
    return static_cast<wchar_t>(reinterpret_cast<ULONG_PTR>(CharLowerW(reinterpret_cast<LPWSTR>(value))));
}

}  // namespace

TEST(CompareContract, OrdersAsTheUserExpects) {
    const struct {
        const wchar_t* less;
        const wchar_t* more;
        DWORD flags;
    } rows[] = {
        {L"a", L"b", NORM_IGNORECASE},
        {L"a", L"B", NORM_IGNORECASE},
        {L"A", L"b", NORM_IGNORECASE},
        {L"", L"a", NORM_IGNORECASE},
        {L"a", L"aa", NORM_IGNORECASE},
        {L"1", L"a", NORM_IGNORECASE},
        {L"_", L"1", NORM_IGNORECASE},
        {L" ", L"1", NORM_IGNORECASE},
        {L".", L"1", NORM_IGNORECASE},
        {L"x", L"x\\y", NORM_IGNORECASE},
        {L"x\\y", L"x2", NORM_IGNORECASE},
        {L"a b.txt", L"a.txt", NORM_IGNORECASE},
        {L"a10", L"a2", NORM_IGNORECASE},
        {L"a2", L"a10", Natural},
        {L"file9.txt", L"file10.txt", Natural},
        {L"9b", L"10a", Natural},
        {L"a10b2", L"a10b10", Natural},
        {L"01", L"1", Natural},
        {L"1", L"02", Natural},
        {L"coop", L"co-op", NORM_IGNORECASE},
        {L"aa", L"a-b", NORM_IGNORECASE},
        {L"a-b", L"ac", NORM_IGNORECASE},
        {L"e", L"\x00E9", NORM_IGNORECASE},
        {L"\x00E9", L"ea", NORM_IGNORECASE},
        {L"\x00E9", L"f", NORM_IGNORECASE},
        {L"z", L"\x03B1", NORM_IGNORECASE},
        {L"\x03B1", L"\x0431", NORM_IGNORECASE},
        {L"a", L"A", 0},
        {L"a", L"B", 0},
        {L"Aa", L"ab", 0},
        {L"aB", L"Ab", 0},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Compare(row.less, row.more, row.flags), CSTR_LESS_THAN)
            << Utf8(row.less) << " and " << Utf8(row.more) << ", flags " << row.flags;
        EXPECT_EQ(Compare(row.more, row.less, row.flags), CSTR_GREATER_THAN)
            << Utf8(row.more) << " and " << Utf8(row.less) << ", flags " << row.flags;
    }
}

TEST(CompareContract, SortsPunctuationInTheOrderOfWindows) {
    constexpr wchar_t Order[] = L" !\"#$%&()*,./:;?@[\\]^_`{|}~+<=>0a";
    for (size_t i = 0; i + 2 < std::size(Order); ++i)
        EXPECT_EQ(CompareStringW(LOCALE_USER_DEFAULT, NORM_IGNORECASE, Order + i, 1, Order + i + 1, 1),
                  CSTR_LESS_THAN)
            << Utf8(std::wstring(Order + i, 2));
}

TEST(CompareContract, FindsTextsEqual) {
    EXPECT_EQ(Compare(L"", L"", NORM_IGNORECASE), CSTR_EQUAL);
    EXPECT_EQ(Compare(L"ReadMe", L"rEADmE", NORM_IGNORECASE), CSTR_EQUAL);
    EXPECT_EQ(Compare(L"readme", L"readme", 0), CSTR_EQUAL);
    EXPECT_EQ(Compare(L"\x0391\x0411", L"\x03B1\x0431", NORM_IGNORECASE), CSTR_EQUAL);
    EXPECT_EQ(Compare(L"a007", L"A007", Natural), CSTR_EQUAL);
}

TEST(CompareContract, TakesLengths) {
    EXPECT_EQ(CompareStringW(LOCALE_USER_DEFAULT, 0, L"abcX", 3, L"abcY", 3), CSTR_EQUAL);
    EXPECT_EQ(CompareStringW(LOCALE_USER_DEFAULT, 0, L"abc", 2, L"abc", -1), CSTR_LESS_THAN);
}

TEST(CompareContract, FailsWithoutAText) {
    EXPECT_EQ(CompareStringW(LOCALE_USER_DEFAULT, 0, nullptr, -1, L"a", -1), 0);
}

TEST(LowerContract, LowersOneCharacter) {
    const struct {
        int upper;
        int lower;
    } rows[] = {
        {'A', 'a'},       {'Z', 'z'},       {'a', 'a'},       {'1', '1'},       {'\\', '\\'},
        {0xC9, 0xE9},     {0xD7, 0xD7},     {0xDF, 0xDF},     {0xE9, 0xE9},     {0x100, 0x101},
        {0x178, 0xFF},    {0x391, 0x3B1},   {0x386, 0x3AC},   {0x3A9, 0x3C9},   {0x410, 0x430},
        {0x401, 0x451},   {0x42F, 0x44F},   {0x531, 0x561},   {0x1E00, 0x1E01}, {0x1E9E, 0x1E9E},
        {0x4E2D, 0x4E2D}, {0xD801, 0xD801}, {0xDC00, 0xDC00}, {0xFF21, 0xFF41},
    };
    for (const auto& row : rows)
        EXPECT_EQ(Lower(row.upper), static_cast<wchar_t>(row.lower)) << std::hex << row.upper;
}

TEST(LowerContract, LowersATextInPlace) {
    wchar_t text[] = L"C:\\Data \x00C9\x0391";
    EXPECT_EQ(CharLowerW(text), text);
    EXPECT_STREQ(text, L"c:\\data \x00E9\x03B1");
}

TEST(RuntimeContract, ComparesWithoutTheCaseOfAscii) {
    EXPECT_EQ(_stricmp("Html", "hTML"), 0);
    EXPECT_LT(_stricmp("Html", "Htmm"), 0);
    EXPECT_GT(_stricmp("a", "B") * -1, 0);
    EXPECT_GT(_stricmp("ab", "a"), 0);
    EXPECT_NE(_stricmp("\xC3\xA4", "\xC3\x84"), 0);
}

TEST(SystemTextContract, EndsInALineEndOrIsMissing) {
    LPWSTR text = nullptr;
    constexpr DWORD Flags =
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS;
    const DWORD length =
        FormatMessageW(Flags, nullptr, ERROR_ACCESS_DENIED, MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT),
                       reinterpret_cast<LPWSTR>(&text), 0, nullptr);
    ASSERT_GT(length, 2u);
    EXPECT_EQ(std::wstring(text).substr(length - 2), L"\r\n");
    EXPECT_EQ(LocalFree(text), nullptr);
    EXPECT_EQ(FormatMessageW(Flags, nullptr, 99999, MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT),
                             reinterpret_cast<LPWSTR>(&text), 0, nullptr),
              0u);
}
