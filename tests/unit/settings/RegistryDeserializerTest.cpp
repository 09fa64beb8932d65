#include "settings/metatypes/RegistryDeserializer.h"

#include <gtest/gtest.h>

#include <cstring>

#include "SingleFieldReader.h"
#include "settings/metatypes/RegistrySerializer.h"

using namespace MetaTypes;
using namespace TestSupport;

namespace {

using RegistryDeserializerTest = SingleFieldReader;

// Bytes of a number as the registry has them.
template <typename T>
std::string Bytes(T value) {
    std::string bytes(sizeof(value), '\0');
    std::memcpy(bytes.data(), &value, sizeof(value));
    return bytes;
}

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
    static constexpr SingleField Field = SingleFieldOf<bool>();
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
    for (const size_t size : {0u, 3u, 5u, 7u, 9u}) {
        Store(REG_BINARY, std::string(size, '\1'));
        ExpectKept(9.0f);
        ExpectKept(9.0);
    }
    StoreDword(1);
    ExpectKept(9.0f);
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
    for (const uint32_t code :
         std::initializer_list<uint32_t>{0, 19, 20, 21, 22, 23, 24, 25, 26, 27, 28, 29, 30, 31, 32, 35}) {
        uint32_t record = 1;
        EXPECT_FALSE(RegistryDeserializer(Key).Deserialize(SingleFieldOf(static_cast<TypeCode>(code), 1).rows,
                                                           &record))
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
    EXPECT_TRUE(RegistryDeserializer(Key).Deserialize(SingleFieldOf(TypeCode::UInt32, 0).rows, &record));
    EXPECT_EQ(record, 12u);
}

TEST_F(RegistryDeserializerTest, ASectionIsASubkey) {
    static constexpr SingleField Inner = SingleFieldOf<uint32_t>();
    static constexpr SingleField Outer = SingleFieldOf(TypeCode::Section, 1, Inner.rows);
    uint32_t record = 1;
    registry_.CreateKey(Key);
    EXPECT_FALSE(RegistryDeserializer(Key).Deserialize(Outer.rows, &record));
    registry_.SetDword(Key + L"\\Value", L"Value", 77);
    EXPECT_TRUE(RegistryDeserializer(Key).Deserialize(Outer.rows, &record));
    EXPECT_EQ(record, 77u);
}

TEST_F(RegistryDeserializerTest, SeveralSectionsInOneRowAreAllReadFromTheOneSubkey) {
    static constexpr SingleField Inner = SingleFieldOf<uint32_t>();
    static constexpr SingleField Outer = SingleFieldOf(TypeCode::Section, 2, Inner.rows);
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
