#include "settings/metatypes/RegistrySerializer.h"

#include <gtest/gtest.h>
#include <utf8.h>

#include <cstring>
#include <limits>

#include "SingleField.h"
#include "support/TestRegistry.h"

using namespace MetaTypes;
using namespace TestSupport;

namespace {

const std::wstring Key = L"Software\\Tamblewick\\Test";

// The value as it lies in memory, for the two codes that are stored so.
template <typename T>
RegistryValue BinaryValue(T value) {
    std::string bytes(sizeof(value), '\0');
    std::memcpy(bytes.data(), &value, sizeof(value));
    return {REG_BINARY, bytes};
}

class RegistrySerializerTest : public testing::Test {
protected:
    template <typename Member>
    bool Write(const Member& member) {
        static constexpr SingleField Field = SingleFieldOf<Member>();
        return RegistrySerializer(Key).Serialize(Field.rows, &member);
    }

    // How a single field of this value is stored.
    template <typename Member>
    std::optional<RegistryValue> Stored(const Member& member) {
        EXPECT_TRUE(Write(member));
        return registry_.Get(Key, L"Value");
    }

    TestRegistry registry_;
};

TEST_F(RegistrySerializerTest, ACharacterIsExtendedByItsSign) {
    EXPECT_EQ(Stored<char>('A'), DwordValue(65));
    EXPECT_EQ(Stored<char>('\x80'), DwordValue(0xFFFFFF80));
}

TEST_F(RegistrySerializerTest, AWideCharacterIsExtendedByZeros) {
    EXPECT_EQ(Stored<wchar_t>(L'A'), DwordValue(65));
    EXPECT_EQ(Stored<wchar_t>(L'\xFFFE'), DwordValue(0xFFFE));
}

TEST_F(RegistrySerializerTest, ABooleanOf32BitsIsZeroOrOne) {
    EXPECT_EQ(Stored(Bool32::False), DwordValue(0));
    EXPECT_EQ(Stored(Bool32::True), DwordValue(1));
    EXPECT_EQ(Stored(static_cast<Bool32>(7)), DwordValue(1));
}

TEST_F(RegistrySerializerTest, ABoolIsZeroOrOne) {
    EXPECT_EQ(Stored(false), DwordValue(0));
    EXPECT_EQ(Stored(true), DwordValue(1));
}

TEST_F(RegistrySerializerTest, UnsignedNumbersAreExtendedByZeros) {
    EXPECT_EQ(Stored<uint8_t>(255), DwordValue(0xFF));
    EXPECT_EQ(Stored<uint16_t>(65535), DwordValue(0xFFFF));
    EXPECT_EQ(Stored<uint32_t>(0xFEDCBA98), DwordValue(0xFEDCBA98));
}

TEST_F(RegistrySerializerTest, SignedNumbersAreExtendedByTheirSign) {
    EXPECT_EQ(Stored<int8_t>(-128), DwordValue(0xFFFFFF80));
    EXPECT_EQ(Stored<int8_t>(127), DwordValue(127));
    EXPECT_EQ(Stored<int16_t>(-32768), DwordValue(0xFFFF8000));
    EXPECT_EQ(Stored<int16_t>(32767), DwordValue(32767));
    EXPECT_EQ(Stored<int32_t>(-1), DwordValue(0xFFFFFFFF));
}

TEST_F(RegistrySerializerTest, FloatsAreTheirBytes) {
    EXPECT_EQ(Stored(1.0f), (RegistryValue{REG_BINARY, std::string("\x00\x00\x80\x3F", 4)}));
    EXPECT_EQ(Stored(-2.0), (RegistryValue{REG_BINARY, std::string("\x00\x00\x00\x00\x00\x00\x00\xC0", 8)}));
    const float quiet = std::numeric_limits<float>::quiet_NaN();
    EXPECT_EQ(Stored(quiet), BinaryValue(quiet));
}

TEST_F(RegistrySerializerTest, ATextBufferEndsAtItsFirstZeroOrItsEnd) {
    struct Text {
        char text[6];
    };
    static constexpr FieldRow Table[] = {MakeRow<decltype(Text::text)>("Value", 0), EndOfTable};
    const auto stored = [&](const Text& text) {
        EXPECT_TRUE(RegistrySerializer(Key).Serialize(Table, &text));
        return registry_.Get(Key, L"Value");
    };
    EXPECT_EQ(stored({"ab"}), StringValue(L"ab"));
    EXPECT_EQ(stored({""}), StringValue(L""));
    EXPECT_EQ(stored({"\xC3\xA4\xE2\x82\xAC"}), StringValue(L"\x00E4\x20AC"));
    EXPECT_EQ(stored({{'a', 'b', 'c', 'd', 'e', 'f'}}), StringValue(L"abcdef"));
    EXPECT_EQ(stored({{'a', '\0', 'c', 'd', 'e', 'f'}}), StringValue(L"a"));
}

TEST_F(RegistrySerializerTest, AWideTextBufferEndsAtItsFirstZeroOrItsEnd) {
    struct Text {
        wchar_t text[4];
    };
    static constexpr FieldRow Table[] = {MakeRow<decltype(Text::text)>("Value", 0), EndOfTable};
    const auto stored = [&](const Text& text) {
        EXPECT_TRUE(RegistrySerializer(Key).Serialize(Table, &text));
        return registry_.Get(Key, L"Value");
    };
    EXPECT_EQ(stored({L"ab"}), StringValue(L"ab"));
    EXPECT_EQ(stored({{L'a', L'b', L'c', L'd'}}), StringValue(L"abcd"));
    EXPECT_EQ(stored({{0xD800, 0, 0, 0}}), StringValue(std::wstring(1, wchar_t{0xD800})));
}

TEST_F(RegistrySerializerTest, AnEnumerationIsTheFirstNameOfItsValue) {
    EXPECT_EQ(Stored(Fruit::Apple), StringValue(L"Apple"));
    EXPECT_EQ(Stored(Fruit::Pear), StringValue(L"Pear"));
}

TEST_F(RegistrySerializerTest, AnEnumerationWithoutANameLeavesTheStaleValue) {
    registry_.SetString(Key, L"Value", L"Old");
    EXPECT_FALSE(Write(Fruit::Plum));
    EXPECT_EQ(registry_.Get(Key, L"Value"), StringValue(L"Old"));
}

TEST_F(RegistrySerializerTest, StringsAreTexts) {
    EXPECT_EQ(Stored(std::string("a\xC3\xA4")), StringValue(L"a\x00E4"));
    EXPECT_EQ(Stored(std::string("\xF0\x9F\x98\x80")), StringValue(L"\xD83D\xDE00"));
    EXPECT_EQ(Stored(std::wstring(L"C:\\Lists")), StringValue(L"C:\\Lists"));
    const std::wstring half(1, wchar_t{0xDC00});
    EXPECT_EQ(Stored(half), StringValue(half));
}

TEST_F(RegistrySerializerTest, AnEmptyTextIsItsTerminator) {
    for (const auto& stored : {Stored(std::string()), Stored(std::wstring())}) {
        ASSERT_TRUE(stored);
        EXPECT_EQ(stored->type, DWORD{REG_SZ});
        EXPECT_EQ(stored->data, std::string(sizeof(wchar_t), '\0'));
    }
}

TEST_F(RegistrySerializerTest, NarrowTextThatIsNoUtf8Throws) {
    EXPECT_THROW(Write(std::string("\xFF")), utf8::invalid_utf8);
    EXPECT_THROW(Write(std::vector<std::string>{"a", "\xC3"}), utf8::exception);
}

TEST_F(RegistrySerializerTest, ListsEndWithOneMoreTerminator) {
    using Narrow = std::vector<std::string>;
    using Wide = std::vector<std::wstring>;
    EXPECT_EQ(Stored(Narrow{"a", "\xC3\xA4"}),
              (RegistryValue{REG_MULTI_SZ, TextData({L"a\0\x00E4\0\0", 5})}));
    EXPECT_EQ(Stored(Wide{L"a", L"bc"}), (RegistryValue{REG_MULTI_SZ, TextData({L"a\0bc\0\0", 6})}));
    EXPECT_EQ(Stored(Narrow{}), (RegistryValue{REG_MULTI_SZ, TextData({L"\0", 1})}));
    EXPECT_EQ(Stored(Wide{}), (RegistryValue{REG_MULTI_SZ, TextData({L"\0", 1})}));
    EXPECT_EQ(Stored(Wide{L"a", L"", L"b"}), (RegistryValue{REG_MULTI_SZ, TextData({L"a\0\0b\0\0", 6})}));
}

TEST_F(RegistrySerializerTest, TheReservedCodesFailAndStoreNothing) {
    std::vector<uint32_t> codes{0, 35};
    for (uint32_t code = 19; code <= 32; ++code)
        codes.push_back(code);
    const uint32_t record = 1;
    for (const uint32_t code : codes) {
        const SingleField field = SingleFieldOf(static_cast<TypeCode>(code), 1);
        EXPECT_FALSE(RegistrySerializer(Key).Serialize(field.rows, &record)) << code;
        EXPECT_TRUE(registry_.ValueNames(Key).empty()) << code;
    }
}

TEST_F(RegistrySerializerTest, AnArrayIsASubkeyWithDecimalNames) {
    std::array<int16_t, 11> numbers{5, -1, 2, 3, 4, 5, 6, 7, 8, 9, 100};
    EXPECT_TRUE(Write(numbers));
    EXPECT_TRUE(registry_.ValueNames(Key).empty());
    EXPECT_EQ(registry_.Subkeys(Key), std::vector<std::wstring>{L"Value"});
    EXPECT_EQ(registry_.ValueNames(Key + L"\\Value").size(), numbers.size());
    for (size_t i = 0; i < numbers.size(); ++i) {
        EXPECT_EQ(registry_.Get(Key + L"\\Value", std::to_wstring(i)),
                  DwordValue(static_cast<uint32_t>(numbers[i])))
            << i;
    }
}

TEST_F(RegistrySerializerTest, ArraysOfTextsAndListsAreStoredElementByElement) {
    EXPECT_TRUE(Write(std::array<std::wstring, 2>{L"x", L"y"}));
    EXPECT_EQ(registry_.Get(Key + L"\\Value", L"1"), StringValue(L"y"));
    EXPECT_TRUE(Write(std::array<std::vector<std::string>, 2>{{{"x"}, {"y", "z"}}}));
    EXPECT_EQ(registry_.Get(Key + L"\\Value", L"1"), StringListValue({L"y", L"z"}));
}

TEST_F(RegistrySerializerTest, AFailedElementFailsTheArrayButNotTheOthers) {
    EXPECT_FALSE(Write(std::array<Fruit, 3>{Fruit::Apple, Fruit::Plum, Fruit::Pear}));
    EXPECT_EQ(registry_.ValueNames(Key + L"\\Value"), (std::vector<std::wstring>{L"0", L"2"}));
    EXPECT_EQ(registry_.Get(Key + L"\\Value", L"2"), StringValue(L"Pear"));
}

TEST_F(RegistrySerializerTest, ACountOfZeroIsASingleValue) {
    const uint32_t record = 12;
    EXPECT_TRUE(RegistrySerializer(Key).Serialize(SingleFieldOf(TypeCode::UInt32, 0).rows, &record));
    EXPECT_EQ(registry_.Get(Key, L"Value"), DwordValue(12));
}

TEST_F(RegistrySerializerTest, ASectionIsASubkey) {
    static constexpr SingleField Inner = SingleFieldOf<uint32_t>();
    static constexpr SingleField Outer = SingleFieldOf(TypeCode::Section, 1, Inner.rows);
    static constexpr SingleField Outermost = SingleFieldOf(TypeCode::Section, 1, Outer.rows);
    const uint32_t record = 77;
    EXPECT_TRUE(RegistrySerializer(Key).Serialize(Outermost.rows, &record));
    EXPECT_EQ(registry_.Get(Key + L"\\Value\\Value", L"Value"), DwordValue(77));
}

TEST_F(RegistrySerializerTest, SeveralSectionsInOneRowStoreNothingAndSucceed) {
    static constexpr SingleField Inner = SingleFieldOf<uint32_t>();
    const uint32_t record[2] = {77, 78};
    EXPECT_TRUE(
        RegistrySerializer(Key).Serialize(SingleFieldOf(TypeCode::Section, 2, Inner.rows).rows, record));
    EXPECT_TRUE(registry_.KeyExists(Key));
    EXPECT_TRUE(registry_.Subkeys(Key).empty());
    EXPECT_TRUE(registry_.ValueNames(Key).empty());
}

TEST_F(RegistrySerializerTest, AnEmptyTableMakesTheKeyAndSucceeds) {
    constexpr FieldRow Table[] = {EndOfTable};
    EXPECT_TRUE(RegistrySerializer(Key).Serialize(Table, nullptr));
    EXPECT_TRUE(registry_.KeyExists(Key));
    EXPECT_TRUE(registry_.ValueNames(Key).empty());
}

TEST_F(RegistrySerializerTest, MissingParentsAreMade) {
    const uint32_t record = 1;
    static constexpr SingleField Field = SingleFieldOf<uint32_t>();
    EXPECT_TRUE(RegistrySerializer(Key + L"\\a\\b\\c").Serialize(Field.rows, &record));
    EXPECT_EQ(registry_.Get(Key + L"\\a\\b\\c", L"Value"), DwordValue(1));
}

TEST_F(RegistrySerializerTest, FieldNamesAreWidenedFromUtf8) {
    const uint32_t record = 1;
    constexpr FieldRow Table[] = {MakeRow<uint32_t>("Gr\xC3\xB6\xC3\x9F"
                                                    "e",
                                                    0),
                                  EndOfTable};
    EXPECT_TRUE(RegistrySerializer(Key).Serialize(Table, &record));
    EXPECT_EQ(registry_.Get(Key,
                            L"Gr\x00F6\x00DF"
                            L"e"),
              DwordValue(1));
}

TEST_F(RegistrySerializerTest, AFailedFieldDoesNotStopTheWalk) {
    struct Record {
        Fruit bad;
        uint32_t good;
    };
    constexpr FieldRow Table[] = {MakeRow<Fruit>("Bad", offsetof(Record, bad), FruitNames),
                                  MakeRow<uint32_t>("Good", offsetof(Record, good)), EndOfTable};
    const Record record{Fruit::Plum, 5};
    EXPECT_FALSE(RegistrySerializer(Key).Serialize(Table, &record));
    EXPECT_EQ(registry_.Get(Key, L"Good"), DwordValue(5));
}

TEST_F(RegistrySerializerTest, WhatTheTableDoesNotNameStays) {
    registry_.SetDword(Key, L"Other", 9);
    registry_.SetString(Key + L"\\Sub", L"Deep", L"x");
    EXPECT_TRUE(Write(uint32_t{1}));
    EXPECT_EQ(registry_.Get(Key, L"Other"), DwordValue(9));
    EXPECT_EQ(registry_.Get(Key + L"\\Sub", L"Deep"), StringValue(L"x"));
}

TEST_F(RegistrySerializerTest, AValueOfAnotherTypeIsReplaced) {
    registry_.SetString(Key, L"Value", L"1");
    EXPECT_EQ(Stored(true), DwordValue(1));
}

}  // namespace
