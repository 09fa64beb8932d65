#include "settings/metatypes/Settings.h"

#include <gtest/gtest.h>

#include <array>

#include "settings/metatypes/MakeRow.h"
#include "settings/metatypes/Serializer.h"

using namespace MetaTypes;

namespace {

enum class Colour : uint32_t { Red, Green };
constexpr EnumRow ColourNames[] = {{"Red", 0}, {"Green", 1}, {nullptr, 0}};

struct Inner {
    int32_t number;
    std::array<bool, 3> flags;
};

struct EveryType {
    char character;
    wchar_t wideCharacter;
    Bool32 bool32;
    bool flag;
    uint8_t uint8;
    int8_t int8;
    uint16_t uint16;
    int16_t int16;
    uint32_t uint32;
    int32_t int32;
    float number;
    double longNumber;
    char text[8];
    wchar_t wideText[5];
    Colour colour;
    Inner section;
    std::string string;
    std::wstring wideString;
    std::vector<std::string> strings;
    std::vector<std::wstring> wideStrings;
    std::array<uint16_t, 4> numbers;
};

#define FIELD(record, member, ...) \
    MakeRow<decltype(record::member)>(#member, offsetof(record, member) __VA_OPT__(, ) __VA_ARGS__)

constexpr FieldRow InnerTable[] = {FIELD(Inner, number), FIELD(Inner, flags), EndOfTable};
constexpr FieldRow EveryTypeTable[] = {
    FIELD(EveryType, character),
    FIELD(EveryType, wideCharacter),
    FIELD(EveryType, bool32),
    FIELD(EveryType, flag),
    FIELD(EveryType, uint8),
    FIELD(EveryType, int8),
    FIELD(EveryType, uint16),
    FIELD(EveryType, int16),
    FIELD(EveryType, uint32),
    FIELD(EveryType, int32),
    FIELD(EveryType, number),
    FIELD(EveryType, longNumber),
    FIELD(EveryType, text),
    FIELD(EveryType, wideText),
    FIELD(EveryType, colour, ColourNames),
    FIELD(EveryType, section, InnerTable),
    FIELD(EveryType, string),
    FIELD(EveryType, wideString),
    FIELD(EveryType, strings),
    FIELD(EveryType, wideStrings),
    FIELD(EveryType, numbers),
    EndOfTable,
};
constexpr uint32_t ColourRow = 14;
constexpr uint32_t SectionRow = 15;
constexpr uint32_t NumbersRow = 20;

#undef FIELD

class SettingsOfEveryType : public testing::Test {
protected:
    EveryType record_{};
    Settings settings_{EveryTypeTable, &record_};
};

// Asks each row but its own for a value of this type.
template <typename T>
void ExpectOnlyRow(Settings& settings, uint32_t ownRow, const T* field) {
    for (uint32_t row = 0; EveryTypeTable[row].name; ++row)
        if (row == ownRow)
            EXPECT_EQ(&settings.Get<T>(row), field) << EveryTypeTable[row].name;
        else
            EXPECT_THROW(settings.Get<T>(row), std::bad_cast) << EveryTypeTable[row].name;
}

TEST_F(SettingsOfEveryType, EachTypeIsReachableInItsOwnRowAlone) {
    ExpectOnlyRow(settings_, 0, &record_.character);
    ExpectOnlyRow(settings_, 1, &record_.wideCharacter);
    ExpectOnlyRow(settings_, 2, &record_.bool32);
    ExpectOnlyRow(settings_, 3, &record_.flag);
    ExpectOnlyRow(settings_, 4, &record_.uint8);
    ExpectOnlyRow(settings_, 5, &record_.int8);
    ExpectOnlyRow(settings_, 6, &record_.uint16);
    ExpectOnlyRow(settings_, 7, &record_.int16);
    ExpectOnlyRow(settings_, 8, &record_.uint32);
    ExpectOnlyRow(settings_, 9, &record_.int32);
    ExpectOnlyRow(settings_, 10, &record_.number);
    ExpectOnlyRow(settings_, 11, &record_.longNumber);
    ExpectOnlyRow(settings_, ColourRow, &record_.colour);
    ExpectOnlyRow(settings_, 16, &record_.string);
    ExpectOnlyRow(settings_, 17, &record_.wideString);
    ExpectOnlyRow(settings_, 18, &record_.strings);
    ExpectOnlyRow(settings_, 19, &record_.wideStrings);
}

TEST_F(SettingsOfEveryType, TheRowsCarryTheCodesOfTheirTypes) {
    constexpr uint32_t Codes[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 33, 34, 7};
    for (uint32_t row = 0; row < std::size(Codes); ++row)
        EXPECT_EQ(static_cast<uint32_t>(EveryTypeTable[row].type), Codes[row]) << EveryTypeTable[row].name;
}

TEST_F(SettingsOfEveryType, ATextBufferCountsItsCharacters) {
    EXPECT_EQ(EveryTypeTable[12].size, 1u);
    EXPECT_EQ(EveryTypeTable[12].count, 8u);
    EXPECT_EQ(EveryTypeTable[13].size, sizeof(wchar_t));
    EXPECT_EQ(EveryTypeTable[13].count, 5u);
}

TEST_F(SettingsOfEveryType, AnElementIsReachableBelowTheCount) {
    for (size_t index = 0; index < 4; ++index)
        EXPECT_EQ(&settings_.Get<uint16_t>(NumbersRow, index), &record_.numbers[index]) << index;
    EXPECT_THROW(settings_.Get<uint16_t>(NumbersRow, 4), std::bad_cast);
    EXPECT_THROW(settings_.Get<uint16_t>(NumbersRow, static_cast<size_t>(-1)), std::bad_cast);
}

TEST_F(SettingsOfEveryType, AnElementOfAnotherTypeThrows) {
    EXPECT_THROW(settings_.Get<int16_t>(NumbersRow, 0), std::bad_cast);
    EXPECT_THROW(settings_.Get<uint32_t>(NumbersRow, 0), std::bad_cast);
}

TEST_F(SettingsOfEveryType, AnArrayIsNoSingleValue) {
    EXPECT_THROW(settings_.Get<uint16_t>(NumbersRow), std::bad_cast);
}

TEST_F(SettingsOfEveryType, ASingleValueHasNoElements) {
    EXPECT_THROW(settings_.Get<uint16_t>(6, 0), std::bad_cast);
}

TEST_F(SettingsOfEveryType, ASectionIsAViewOfTheRecord) {
    record_.section = {42, {false, true, false}};
    Settings section = settings_.Section(SectionRow);
    EXPECT_EQ(&section.Get<int32_t>(0), &record_.section.number);
    EXPECT_EQ(&section.Get<bool>(1, 2), &record_.section.flags[2]);
    EXPECT_THROW(section.Get<bool>(0), std::bad_cast);
}

TEST_F(SettingsOfEveryType, OnlyASectionCanBeViewed) {
    for (uint32_t row = 0; EveryTypeTable[row].name; ++row)
        if (row != SectionRow)
            EXPECT_THROW(settings_.Section(row), std::bad_cast) << EveryTypeTable[row].name;
}

TEST_F(SettingsOfEveryType, SeveralSectionsInOneRowCannotBeViewed) {
    constexpr FieldRow Table[] = {{"Pair", sizeof(Inner), 2, 0, TypeCode::Section, InnerTable}, EndOfTable};
    Inner pair[2]{};
    EXPECT_THROW(Settings(Table, pair).Section(0), std::bad_cast);
}

TEST_F(SettingsOfEveryType, ConstantSettingsGiveConstantFields) {
    record_.int32 = -5;
    record_.numbers[1] = 9;
    record_.section.number = 3;
    const Settings& constant = settings_;
    EXPECT_EQ(constant.Get<int32_t>(9), -5);
    EXPECT_EQ(constant.Get<uint16_t>(NumbersRow, 1), 9);
    EXPECT_EQ(constant.Section(SectionRow).Get<int32_t>(0), 3);
    EXPECT_THROW(constant.Get<bool>(9), std::bad_cast);
}

TEST(Settings, TheTextOfAFailedAccessIsBadCast) {
    int32_t number = 0;
    constexpr FieldRow Table[] = {MakeRow<int32_t>("Number", 0), EndOfTable};
    Settings settings(Table, &number);
    try {
        settings.Get<bool>(0);
        FAIL() << "nothing was thrown";
    } catch (const std::bad_cast& error) {
        EXPECT_STREQ(error.what(), "bad cast");
    }
}

// Records which table and record it is given.
class Recorder : public ISerializer, public IDeserializer {
public:
    explicit Recorder(bool result) : result_(result) {}

    bool Serialize(const FieldRow* givenTable, const void* givenRecord) override {
        table = givenTable;
        record = givenRecord;
        return result_;
    }
    bool Deserialize(const FieldRow* givenTable, void* givenRecord) override {
        return Serialize(givenTable, givenRecord);
    }
    const FieldRow* table = nullptr;
    const void* record = nullptr;

private:
    bool result_;
};

TEST_F(SettingsOfEveryType, SerializersAreGivenTableAndRecord) {
    for (const bool result : {true, false}) {
        Recorder writer(result);
        EXPECT_EQ(settings_.Serialize(writer), result);
        EXPECT_EQ(writer.table, EveryTypeTable);
        EXPECT_EQ(writer.record, &record_);
        Recorder reader(result);
        EXPECT_EQ(settings_.Deserialize(reader), result);
        EXPECT_EQ(reader.table, EveryTypeTable);
        EXPECT_EQ(reader.record, &record_);
    }
}

}  // namespace
