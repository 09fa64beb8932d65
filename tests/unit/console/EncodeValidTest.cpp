#include "console/EncodeValid.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>

namespace {

struct Encoded {
    std::string bytes;
    bool lossy;

    bool operator==(const Encoded&) const = default;
};

Encoded Encode(std::initializer_list<int> units) {
    std::wstring text;
    for (const int unit : units)
        text += static_cast<wchar_t>(unit);
    std::string bytes(text.size() * 3 + 1, '~');
    bool lossy = false;
    char* const end = Console::EncodeValid(text, bytes.data(), lossy, [](char character, char* out) {
        *out = character;
        return out + 1;
    });
    EXPECT_EQ(*end, '~') << "no byte is written at or after the end";
    return {bytes.substr(0, static_cast<size_t>(end - bytes.data())), lossy};
}

TEST(EncodeValid, EncodesByTheSizeOfTheCodePoint) {
    EXPECT_EQ(Encode({}), (Encoded{"", false}));
    EXPECT_EQ(Encode({'a', 0x7F}), (Encoded{"a\x7F", false}));
    EXPECT_EQ(Encode({0x80, 0x7FF}), (Encoded{"\xC2\x80\xDF\xBF", false}));
    EXPECT_EQ(Encode({0x800, 0xFFFF}), (Encoded{"\xE0\xA0\x80\xEF\xBF\xBF", false}));
    EXPECT_EQ(Encode({0xD7FF, 0xE000}), (Encoded{"\xED\x9F\xBF\xEE\x80\x80", false}));
    EXPECT_EQ(Encode({0xD800, 0xDC00}), (Encoded{"\xF0\x90\x80\x80", false}));
    EXPECT_EQ(Encode({0xD83D, 0xDE00, 'z'}), (Encoded{"\xF0\x9F\x98\x80z", false}));
    EXPECT_EQ(Encode({0xDBFF, 0xDFFF}), (Encoded{"\xF4\x8F\xBF\xBF", false}));
}

TEST(EncodeValid, ReplacesEachHalfOfASurrogatePair) {
    constexpr char Replacement[] = "\xEF\xBF\xBD";
    EXPECT_EQ(Encode({0xD800}), (Encoded{Replacement, true}));
    EXPECT_EQ(Encode({0xDBFF}), (Encoded{Replacement, true}));
    EXPECT_EQ(Encode({0xDC00}), (Encoded{Replacement, true}));
    EXPECT_EQ(Encode({0xDFFF}), (Encoded{Replacement, true}));
    EXPECT_EQ(Encode({0xD83D, 'a'}), (Encoded{std::string(Replacement) + "a", true}));
    EXPECT_EQ(Encode({0xD83D, 0xE9}), (Encoded{std::string(Replacement) + "\xC3\xA9", true}));
    EXPECT_EQ(Encode({0xDE00, 0xD83D}), (Encoded{std::string(Replacement) + Replacement, true}));
    EXPECT_EQ(Encode({0xD83D, 0xD83D, 0xDE00}),
              (Encoded{std::string(Replacement) + "\xF0\x9F\x98\x80", true}));
    EXPECT_EQ(Encode({0xD83D, 0xDE00, 0xDE00}),
              (Encoded{std::string("\xF0\x9F\x98\x80") + Replacement, true}));
}

TEST(EncodeValid, KeepsTheReplacementCharacterOfANameWithoutLoss) {
    EXPECT_EQ(Encode({0xFFFD}), (Encoded{"\xEF\xBF\xBD", false}));
}

// One text after the other may set it; none clears it.
TEST(EncodeValid, DoesNotClearTheMarkOfALoss) {
    bool lossy = true;
    char memory[3];
    Console::EncodeValid(L"a", memory, lossy, [](char character, char* out) {
        *out = character;
        return out + 1;
    });
    EXPECT_TRUE(lossy);
}

}  // namespace
