#include <gtest/gtest.h>
#include <utf8.h>

#include "SingleFieldReader.h"

using namespace MetaTypes;
using namespace TestSupport;

namespace {

using RegistryTexts = SingleFieldReader;

TEST_F(RegistryTexts, ATextBufferTakesWhatFits) {
    struct Text {
        char text[4];
    };
    static constexpr FieldRow Table[] = {MakeRow<decltype(Text::text)>("Value", 0), EndOfTable};
    const std::pair<std::wstring, std::string> Rows[] = {
        {L"", ""},        {L"ab", "ab"},           {L"abc", "abc"},
        {L"abcd", "abc"}, {L"\x00E4", "\xC3\xA4"}, {L"ab\x00E4", "ab\xC3"},  // cut inside the letter
    };
    for (const auto& [stored, expected] : Rows) {
        StoreText(stored);
        Text text{{'x', 'x', 'x', 'x'}};
        EXPECT_TRUE(RegistryDeserializer(Key).Deserialize(Table, &text));
        EXPECT_EQ(std::string(text.text), expected);
    }
    StoreDword(1);
    Text text{"old"};
    EXPECT_FALSE(RegistryDeserializer(Key).Deserialize(Table, &text));
    EXPECT_STREQ(text.text, "old");
}

TEST_F(RegistryTexts, AWideTextBufferTakesWhatFits) {
    struct Text {
        wchar_t text[4];
    };
    static constexpr FieldRow Table[] = {MakeRow<decltype(Text::text)>("Value", 0), EndOfTable};
    const std::pair<std::wstring, std::wstring> Rows[] = {
        {L"", L""}, {L"abc", L"abc"}, {L"abcd", L"abc"}, {L"ab\xD800", L"ab\xD800"}};
    for (const auto& [stored, expected] : Rows) {
        StoreText(stored);
        Text text{{L'x', L'x', L'x', L'x'}};
        EXPECT_TRUE(RegistryDeserializer(Key).Deserialize(Table, &text));
        EXPECT_EQ(std::wstring(text.text), expected);
    }
}

TEST_F(RegistryTexts, EnumerationsAreReadByNameWithoutRegardToCase) {
    for (const wchar_t* word : {L"Apple", L"apple", L"APPLE", L"aPPLE"}) {
        StoreText(word);
        ExpectRead(Fruit::Apple, Fruit::Plum);
    }
    StoreText(L"Quince");
    ExpectRead(Fruit::Pear, Fruit::Plum);
}

TEST_F(RegistryTexts, AnEnumerationWithoutThatNameIsKept) {
    for (const wchar_t* word : {L"", L"Appl", L"Apples", L" Apple", L"3", L"\x00C4pple"}) {
        StoreText(word);
        ExpectKept(Fruit::Plum);
    }
    StoreDword(3);
    ExpectKept(Fruit::Plum);
}

TEST_F(RegistryTexts, StringsAreTexts) {
    StoreText(L"a\x00E4\xD83D\xDE00");
    ExpectRead(std::string("a\xC3\xA4\xF0\x9F\x98\x80"), std::string("old"));
    ExpectRead(std::wstring(L"a\x00E4\xD83D\xDE00"), std::wstring(L"old"));
}

TEST_F(RegistryTexts, AnEmptyTextIsReadAndCounts) {
    StoreText(L"");
    ExpectRead(std::string(), std::string("old"));
    ExpectRead(std::wstring(), std::wstring(L"old"));
}

TEST_F(RegistryTexts, ATextEndsAtItsFirstZeroOrAtItsEnd) {
    Store(REG_SZ, TextData(L"abc"));
    ExpectRead(std::wstring(L"abc"), std::wstring());
    Store(REG_SZ, TextData({L"ab\0cd\0", 6}));
    ExpectRead(std::wstring(L"ab"), std::wstring());
    Store(REG_SZ, "");
    ExpectRead(std::wstring(), std::wstring(L"old"));
}

TEST_F(RegistryTexts, ATextMustBeExactlyOfTheTypeOfTexts) {
    for (const DWORD type : std::initializer_list<DWORD>{REG_EXPAND_SZ, REG_MULTI_SZ, REG_BINARY, REG_NONE}) {
        Store(type, TextData({L"Apple\0", 6}));
        ExpectKept(std::string("old"));
        ExpectKept(std::wstring(L"old"));
        ExpectKept(Fruit::Plum);
    }
}

TEST_F(RegistryTexts, BadUtf16ThrowsOnlyWhereItMustBeNarrowed) {
    const std::wstring half(1, wchar_t{0xD800});
    std::string narrow = "old";
    Fruit fruit = Fruit::Plum;
    StoreText(half);
    EXPECT_THROW(Read(narrow), utf8::invalid_utf16);
    EXPECT_THROW(Read(fruit), utf8::invalid_utf16);
    struct Text {
        char text[8];
    } buffer{"old"};
    static constexpr FieldRow Table[] = {MakeRow<decltype(Text::text)>("Value", 0), EndOfTable};
    EXPECT_THROW(RegistryDeserializer(Key).Deserialize(Table, &buffer), utf8::invalid_utf16);
    ExpectRead(half, std::wstring());

    registry_.SetStringList(Key, L"Value", {half});
    std::vector<std::string> list;
    EXPECT_THROW(Read(list), utf8::invalid_utf16);
    ExpectRead(std::vector<std::wstring>{half}, {});
}

TEST_F(RegistryTexts, AListEndsAtItsFirstEmptyStringOrAtItsEnd) {
    const std::pair<std::string, std::vector<std::wstring>> Rows[] = {
        {TextData({L"a\0bc\0\0", 6}), {L"a", L"bc"}},
        {TextData({L"a\0\0b\0\0", 6}), {L"a"}},
        {TextData({L"a\0bc\0", 5}), {L"a", L"bc"}},
        {TextData({L"a\0bc", 4}), {L"a", L"bc"}},
        {TextData({L"\0", 1}), {}},
        {"", {}},
    };
    for (const auto& [data, expected] : Rows) {
        Store(REG_MULTI_SZ, data);
        ExpectRead(expected, {L"old"});
    }
}

TEST_F(RegistryTexts, ANarrowListIsNarrowed) {
    registry_.SetStringList(Key, L"Value", {L"a", L"\x00E4"});
    ExpectRead(std::vector<std::string>{"a", "\xC3\xA4"}, {"old"});
}

TEST_F(RegistryTexts, AListIsEmptiedBeforeItIsLookedFor) {
    registry_.CreateKey(Key);
    std::vector<std::string> narrow{"old"};
    std::vector<std::wstring> wide{L"old"};
    EXPECT_FALSE(Read(narrow));
    EXPECT_FALSE(Read(wide));
    EXPECT_TRUE(narrow.empty());
    EXPECT_TRUE(wide.empty());

    StoreText(L"a");
    narrow = {"old"};
    wide = {L"old"};
    EXPECT_FALSE(Read(narrow));
    EXPECT_FALSE(Read(wide));
    EXPECT_TRUE(narrow.empty());
    EXPECT_TRUE(wide.empty());
}

}  // namespace
