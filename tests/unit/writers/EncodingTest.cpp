#include "writers/Encoding.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

struct Row {
    const char* what;
    std::wstring text;
    std::string bytes;
};

std::wstring Units(std::initializer_list<int> units) {
    std::wstring text;
    for (const int unit : units)
        text += static_cast<wchar_t>(unit);
    return text;
}

std::string Encoded(std::wstring_view text) {
    std::string memory;
    return std::string(EncodeText(text, memory));
}

TEST(Encoding, TurnsUnitsIntoBytes) {
    const Row rows[] = {
        {"empty", L"", ""},
        {"ASCII", L"List of C (2).txt", "List of C (2).txt"},
        {"nothing is escaped", L"<a & b>|\"'\\", "<a & b>|\"'\\"},
        {"a NUL within", Units({'a', 0, 'b'}), std::string("a\0b", 3)},
        {"last of one byte", Units({0x7F}), "\x7F"},
        {"first of two bytes", Units({0x80}), "\xC2\x80"},
        {"last of two bytes", Units({0x7FF}), "\xDF\xBF"},
        {"first of three bytes", Units({0x800}), "\xE0\xA0\x80"},
        {"last before the surrogates", Units({0xD7FF}), "\xED\x9F\xBF"},
        {"last of three bytes", Units({0xFFFF}), "\xEF\xBF\xBF"},
        {"ASCII before and after", Units({'a', 0xE4, 'b', 0x20AC, 'c'}),
         "a\xC3\xA4"
         "b\xE2\x82\xAC"
         "c"},
        {"first pair", Units({0xD800, 0xDC00}), "\xF0\x90\x80\x80"},
        {"a pair between letters", Units({'x', 0xD83D, 0xDE00, 'y'}), "x\xF0\x9F\x98\x80y"},
        {"last pair", Units({0xDBFF, 0xDFFF}), "\xF4\x8F\xBF\xBF"},
        {"trail alone", Units({0xDC00}), "\xED\xB0\x80"},
        {"last trail alone", Units({0xDFFF}), "\xED\xBF\xBF"},
        {"trail before lead", Units({0xDFFF, 0xD800, 0xDC00}), "\xED\xBF\xBF\xF0\x90\x80\x80"},
        {"lead takes a letter", Units({0xD800, 'A', 'B'}),
         "\xE2\x91\x81"
         "B"},
        {"lead takes a lead", Units({0xD800, 0xD800}), "\xEF\xB0\x80"},
        {"lead takes the highest unit", Units({0xDBFF, 0xFFFF}), "\xF4\x91\xBF\xBF"},
        {"lead at the end", Units({0xD800}), "\xE2\x90\x80"},
        {"lead after letters at the end", Units({'a', 0xD83D}), "a\xF0\x91\xA0\x80"},
    };
    for (const Row& row : rows)
        EXPECT_EQ(Encoded(row.text), row.bytes) << row.what;
}

TEST(Encoding, LeadAtTheEndOfAViewDoesNotTakeWhatLiesBehindTheView) {
    const std::wstring pair = Units({0xD800, 0xDC00});
    EXPECT_EQ(Encoded(std::wstring_view(pair).substr(0, 1)), "\xE2\x90\x80");
}

TEST(Encoding, KeepsNothingOfTheTextBefore) {
    std::string memory;
    EXPECT_EQ(EncodeText(L"a longer text", memory), "a longer text");
    EXPECT_EQ(EncodeText(L"short", memory), "short");
    EXPECT_EQ(EncodeText(L"", memory), "");
}

TEST(Encoding, GivesEverySingleUnitTheLengthOfItsRange) {
    for (int unit = 0; unit <= 0xFFFF; ++unit) {
        const bool lead = unit >= 0xD800 && unit <= 0xDBFF;
        if (lead)
            continue;
        const size_t length = unit < 0x80 ? 1u : unit < 0x800 ? 2u : 3u;
        ASSERT_EQ(Encoded(Units({unit})).size(), length) << unit;
    }
}

}  // namespace
