#include "settings/metatypes/RegistryDeserializer.h"

#include <gtest/gtest.h>
#include <utf8.h>

#include <cstring>

#include "LoneField.h"
#include "settings/metatypes/RegistrySerializer.h"
#include "support/TestRegistry.h"

using namespace MetaTypes;
using namespace TestSupport;

namespace {

const std::wstring Key = L"Software\\Tamblewick\\Test";

// Bytes of a number as the registry has them.
template <typename T>
std::string Bytes(T value) {
    std::string bytes(sizeof(value), '\0');
    std::memcpy(bytes.data(), &value, sizeof(value));
    return bytes;
}

class RegistryDeserializerTest : public testing::Test {
protected:
    // Reads what is stored as "Value" into a lone field.
    template <typename Member>
    bool Read(Member& member) {
        static constexpr LoneField Field = LoneFieldOf<Member>();
        return RegistryDeserializer(Key).Deserialize(Field.rows, &member);
    }

    template <typename Member>
    void ExpectRead(const Member& expected, Member initial) {
        EXPECT_TRUE(Read(initial));
        EXPECT_EQ(initial, expected);
    }

    // The field keeps what it had.
    template <typename Member>
    void ExpectKept(Member initial) {
        const Member before = initial;
        EXPECT_FALSE(Read(initial));
        EXPECT_EQ(initial, before);
    }

    void StoreDword(uint32_t value) { registry_.SetDword(Key, L"Value", value); }
    void StoreText(std::wstring_view text) { registry_.SetString(Key, L"Value", text); }
    void Store(DWORD type, const std::string& data) { registry_.SetRaw(Key, L"Value", type, data); }

    TestRegistry registry_;
};

TEST_F(RegistryDeserializerTest, CharactersAreNotRead) {
    StoreDword(65);
    ExpectKept<char>('x');
    ExpectKept<wchar_t>(L'x');
}

TEST_F(RegistryDeserializerTest, AnyNumberButZeroIsTrue) {
    for (const uint32_t stored : {1u, 7u, 0x80000000u}) {
        StoreDword(stored);
        ExpectRead(true, false);
        ExpectRead(Bool32::True, Bool32::False);
    }
    StoreDword(0);
    ExpectRead(false, true);
    ExpectRead(Bool32::False, Bool32::True);
}

TEST_F(RegistryDeserializerTest, ABoolReadAsSevenIsSavedAsOne) {
    static constexpr LoneField Field = LoneFieldOf<bool>();
    StoreDword(7);
    bool flag = false;
    EXPECT_TRUE(Read(flag));
    EXPECT_TRUE(RegistrySerializer(Key).Serialize(Field.rows, &flag));
    EXPECT_EQ(registry_.Get(Key, L"Value"), DwordValue(1));
}

TEST_F(RegistryDeserializerTest, ABoolStoredAsTextKeepsItsValue) {
    StoreText(L"1");
    ExpectKept(false);
    ExpectKept(Bool32::False);
}

template <typename T>
struct Range {
    uint32_t stored;
    bool read;
    T value;
};

TEST_F(RegistryDeserializerTest, UnsignedBytesEndAt255) {
    for (const Range<uint8_t>& row :
         {Range<uint8_t>{0, true, 0}, {255, true, 255}, {256, false, 0}, {0xFFFFFFFF, false, 0}}) {
        StoreDword(row.stored);
        row.read ? ExpectRead<uint8_t>(row.value, 9) : ExpectKept<uint8_t>(9);
    }
}

TEST_F(RegistryDeserializerTest, SignedBytesReachFromMinus128To127) {
    for (const Range<int8_t>& row : {Range<int8_t>{127, true, 127},
                                     {128, false, 0},
                                     {0xFFFFFF80, true, -128},
                                     {0xFFFFFF7F, false, 0},
                                     {0xFF, false, 0}}) {
        StoreDword(row.stored);
        row.read ? ExpectRead<int8_t>(row.value, 9) : ExpectKept<int8_t>(9);
    }
}

TEST_F(RegistryDeserializerTest, UnsignedWordsEndAt65535) {
    for (const Range<uint16_t>& row :
         {Range<uint16_t>{65535, true, 65535}, {65536, false, 0}, {0xFFFFFFFF, false, 0}}) {
        StoreDword(row.stored);
        row.read ? ExpectRead<uint16_t>(row.value, 9) : ExpectKept<uint16_t>(9);
    }
}

TEST_F(RegistryDeserializerTest, SignedWordsReachFromMinus32768To32767) {
    for (const Range<int16_t>& row : {Range<int16_t>{32767, true, 32767},
                                      {32768, false, 0},
                                      {0xFFFF8000, true, -32768},
                                      {0xFFFF7FFF, false, 0}}) {
        StoreDword(row.stored);
        row.read ? ExpectRead<int16_t>(row.value, 9) : ExpectKept<int16_t>(9);
    }
}

TEST_F(RegistryDeserializerTest, NumbersOf32BitsAreTakenAsTheyAre) {
    StoreDword(0xFFFFFFFE);
    ExpectRead<uint32_t>(0xFFFFFFFE, 0);
    ExpectRead<int32_t>(-2, 0);
}

TEST_F(RegistryDeserializerTest, ANumberMustBeADwordOfFourBytes) {
    const std::pair<DWORD, std::string> Damaged[] = {
        {REG_BINARY, Bytes(1u)},
        {REG_SZ, TextData(L"1")},
        {REG_NONE, Bytes(1u)},
        {REG_DWORD, std::string(1, '\1')},
        {REG_DWORD, std::string(2, '\1')},
        {REG_DWORD, std::string()},
        {REG_DWORD, std::string(8, '\1')},
        {REG_QWORD, Bytes(uint64_t{1})},
        {REG_DWORD_BIG_ENDIAN, Bytes(1u)},
    };
    for (const auto& [type, data] : Damaged) {
        SCOPED_TRACE(testing::Message() << "type " << type << ", " << data.size() << " bytes");
        Store(type, data);
        ExpectKept<uint8_t>(9);
        ExpectKept<int8_t>(9);
        ExpectKept<uint16_t>(9);
        ExpectKept<int16_t>(9);
        ExpectKept<uint32_t>(9);
        ExpectKept<int32_t>(9);
        ExpectKept(false);
        ExpectKept(Bool32::False);
    }
}

TEST_F(RegistryDeserializerTest, FloatsAreTheirBytesOfExactSize) {
    Store(REG_BINARY, Bytes(1.5f));
    ExpectRead(1.5f, 0.0f);
    ExpectKept(9.0);
    Store(REG_BINARY, Bytes(-2.25));
    ExpectRead(-2.25, 0.0);
    ExpectKept(9.0f);
    for (const size_t size : {0, 3, 5, 7, 9}) {
        Store(REG_BINARY, std::string(size, '\1'));
        ExpectKept(9.0f);
        ExpectKept(9.0);
    }
    StoreDword(1);
    ExpectKept(9.0f);
}

TEST_F(RegistryDeserializerTest, ATextBufferTakesWhatFits) {
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

TEST_F(RegistryDeserializerTest, AWideTextBufferTakesWhatFits) {
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

TEST_F(RegistryDeserializerTest, EnumerationsAreReadByNameWithoutRegardToCase) {
    for (const wchar_t* word : {L"Apple", L"apple", L"APPLE", L"aPPLE"}) {
        StoreText(word);
        ExpectRead(Fruit::Apple, Fruit::Plum);
    }
    StoreText(L"Quince");
    ExpectRead(Fruit::Pear, Fruit::Plum);
}

TEST_F(RegistryDeserializerTest, AnEnumerationWithoutThatNameIsKept) {
    for (const wchar_t* word : {L"", L"Appl", L"Apples", L" Apple", L"3", L"\x00C4pple"}) {
        StoreText(word);
        ExpectKept(Fruit::Plum);
    }
    StoreDword(3);
    ExpectKept(Fruit::Plum);
}

TEST_F(RegistryDeserializerTest, StringsAreTexts) {
    StoreText(L"a\x00E4\xD83D\xDE00");
    ExpectRead(std::string("a\xC3\xA4\xF0\x9F\x98\x80"), std::string("old"));
    ExpectRead(std::wstring(L"a\x00E4\xD83D\xDE00"), std::wstring(L"old"));
}

TEST_F(RegistryDeserializerTest, AnEmptyTextIsReadAndCounts) {
    StoreText(L"");
    ExpectRead(std::string(), std::string("old"));
    ExpectRead(std::wstring(), std::wstring(L"old"));
}

TEST_F(RegistryDeserializerTest, ATextEndsAtItsFirstZeroOrAtItsEnd) {
    Store(REG_SZ, TextData(L"abc"));
    ExpectRead(std::wstring(L"abc"), std::wstring());
    Store(REG_SZ, TextData({L"ab\0cd\0", 6}));
    ExpectRead(std::wstring(L"ab"), std::wstring());
    Store(REG_SZ, "");
    ExpectRead(std::wstring(), std::wstring(L"old"));
}

TEST_F(RegistryDeserializerTest, ATextMustBeExactlyOfTheTypeOfTexts) {
    for (const DWORD type : {REG_EXPAND_SZ, REG_MULTI_SZ, REG_BINARY, REG_NONE}) {
        Store(type, TextData({L"Apple\0", 6}));
        ExpectKept(std::string("old"));
        ExpectKept(std::wstring(L"old"));
        ExpectKept(Fruit::Plum);
    }
}

TEST_F(RegistryDeserializerTest, BadUtf16ThrowsOnlyWhereItMustBeNarrowed) {
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

TEST_F(RegistryDeserializerTest, AListEndsAtItsFirstEmptyStringOrAtItsEnd) {
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

TEST_F(RegistryDeserializerTest, ANarrowListIsNarrowed) {
    registry_.SetStringList(Key, L"Value", {L"a", L"\x00E4"});
    ExpectRead(std::vector<std::string>{"a", "\xC3\xA4"}, {"old"});
}

TEST_F(RegistryDeserializerTest, AListIsEmptiedBeforeItIsLookedFor) {
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

TEST_F(RegistryDeserializerTest, WithoutTheKeyNothingChanges) {
    ExpectKept(5u);
    ExpectKept(std::vector<std::wstring>{L"old"});
    EXPECT_FALSE(registry_.KeyExists(Key));
}

TEST_F(RegistryDeserializerTest, AMissingValueIsKept) {
    registry_.CreateKey(Key);
    ExpectKept(5u);
    ExpectKept(true);
    ExpectKept(1.0f);
    ExpectKept(std::wstring(L"old"));
    ExpectKept(Fruit::Plum);
}

TEST_F(RegistryDeserializerTest, TheReservedCodesFail) {
    StoreDword(5);
    for (uint32_t code : {0, 19, 20, 21, 22, 23, 24, 25, 26, 27, 28, 29, 30, 31, 32, 35}) {
        uint32_t record = 1;
        EXPECT_FALSE(
            RegistryDeserializer(Key).Deserialize(LoneFieldOf(static_cast<TypeCode>(code), 1).rows, &record))
            << code;
        EXPECT_EQ(record, 1u) << code;
    }
}

TEST_F(RegistryDeserializerTest, AnArrayTakesTheElementsThatAreThere) {
    registry_.SetDword(Key + L"\\Value", L"0", 10);
    registry_.SetDword(Key + L"\\Value", L"1", 11);
    registry_.SetDword(Key + L"\\Value", L"03", 13);
    std::array<uint16_t, 4> numbers{1, 2, 3, 4};
    EXPECT_FALSE(Read(numbers));
    EXPECT_EQ(numbers, (std::array<uint16_t, 4>{10, 11, 3, 4}));
}

TEST_F(RegistryDeserializerTest, ACompleteArraySucceeds) {
    registry_.SetString(Key + L"\\Value", L"0", L"x");
    registry_.SetString(Key + L"\\Value", L"1", L"y");
    ExpectRead(std::array<std::wstring, 2>{L"x", L"y"}, {});
}

TEST_F(RegistryDeserializerTest, AnArrayWithoutItsSubkeyIsKept) {
    StoreDword(5);
    ExpectKept(std::array<uint16_t, 2>{1, 2});
}

TEST_F(RegistryDeserializerTest, ACountOfZeroIsASingleValue) {
    StoreDword(12);
    uint32_t record = 0;
    EXPECT_TRUE(RegistryDeserializer(Key).Deserialize(LoneFieldOf(TypeCode::UInt32, 0).rows, &record));
    EXPECT_EQ(record, 12u);
}

TEST_F(RegistryDeserializerTest, ASectionIsASubkey) {
    static constexpr LoneField Inner = LoneFieldOf<uint32_t>();
    static constexpr LoneField Outer = LoneFieldOf(TypeCode::Section, 1, Inner.rows);
    uint32_t record = 1;
    registry_.CreateKey(Key);
    EXPECT_FALSE(RegistryDeserializer(Key).Deserialize(Outer.rows, &record));
    registry_.SetDword(Key + L"\\Value", L"Value", 77);
    EXPECT_TRUE(RegistryDeserializer(Key).Deserialize(Outer.rows, &record));
    EXPECT_EQ(record, 77u);
}

TEST_F(RegistryDeserializerTest, SeveralSectionsInOneRowAreAllReadFromTheOneSubkey) {
    static constexpr LoneField Inner = LoneFieldOf<uint32_t>();
    static constexpr LoneField Outer = LoneFieldOf(TypeCode::Section, 2, Inner.rows);
    registry_.SetDword(Key + L"\\Value", L"Value", 77);
    uint32_t record[2] = {1, 2};
    EXPECT_TRUE(RegistryDeserializer(Key).Deserialize(Outer.rows, record));
    EXPECT_EQ(record[0], 77u);
    EXPECT_EQ(record[1], 77u);
}

TEST_F(RegistryDeserializerTest, AnEmptyTableSucceeds) {
    constexpr FieldRow Table[] = {EndOfTable};
    registry_.CreateKey(Key);
    EXPECT_TRUE(RegistryDeserializer(Key).Deserialize(Table, nullptr));
}

TEST_F(RegistryDeserializerTest, ReadingRepairsNothing) {
    StoreText(L"no number");
    ExpectKept(5u);
    EXPECT_EQ(registry_.Get(Key, L"Value"), StringValue(L"no number"));
}

}  // namespace
