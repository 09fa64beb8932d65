#include <gtest/gtest.h>

#include "FakeWin.h"
#include "SingleField.h"
#include "settings/metatypes/RegistryDeserializer.h"
#include "settings/metatypes/RegistrySerializer.h"
#include "support/TestRegistry.h"

using namespace MetaTypes;
using namespace TestSupport;
using FakeWin::Call;

namespace {

const std::wstring Key = L"Software\\Tamblewick\\Test";
const std::wstring Subject = L"HKCU\\Software\\Tamblewick\\Test";

// The uses of one call, as subject and detail.
std::vector<std::pair<std::wstring, DWORD>> UsesOf(Call call) {
    std::vector<std::pair<std::wstring, DWORD>> uses;
    for (const FakeWin::LoggedCall& logged : FakeWin::Log())
        if (logged.call == call)
            uses.emplace_back(logged.subject, logged.detail);
    return uses;
}

struct Pair {
    uint32_t first;
    uint32_t second;
};
constexpr FieldRow PairTable[] = {MakeRow<uint32_t>("First", offsetof(Pair, first)),
                                  MakeRow<uint32_t>("Second", offsetof(Pair, second)), EndOfTable};

struct Sections {
    Pair left;
    Pair right;
    std::array<uint32_t, 2> numbers;
    uint32_t last;
};
constexpr FieldRow SectionsTable[] = {
    MakeRow<Pair>("Left", offsetof(Sections, left), PairTable),
    MakeRow<Pair>("Right", offsetof(Sections, right), PairTable),
    MakeRow<decltype(Sections::numbers)>("Numbers", offsetof(Sections, numbers)),
    MakeRow<uint32_t>("Last", offsetof(Sections, last)),
    EndOfTable,
};

TEST(RegistryStorageFaults, WritingOpensEveryKeyForWritingAndClosesIt) {
    TestRegistry registry;
    const Sections record{};
    FakeWin::ClearLog();
    EXPECT_TRUE(RegistrySerializer(Key).Serialize(SectionsTable, &record));
    EXPECT_EQ(UsesOf(Call::RegCreateKeyExW), (std::vector<std::pair<std::wstring, DWORD>>{
                                                 {Subject, 0x20006},
                                                 {Subject + L"\\Left", 0x20006},
                                                 {Subject + L"\\Right", 0x20006},
                                                 {Subject + L"\\Numbers", 0x20006},
                                             }));
    EXPECT_TRUE(UsesOf(Call::RegOpenKeyExW).empty());
    EXPECT_EQ(FakeWin::OpenKeys(), 0);
}

TEST(RegistryStorageFaults, ReadingOpensEveryKeyForReadingAndClosesIt) {
    TestRegistry registry;
    Sections record{};
    EXPECT_TRUE(RegistrySerializer(Key).Serialize(SectionsTable, &record));
    FakeWin::ClearLog();
    EXPECT_TRUE(RegistryDeserializer(Key).Deserialize(SectionsTable, &record));
    EXPECT_EQ(UsesOf(Call::RegOpenKeyExW), (std::vector<std::pair<std::wstring, DWORD>>{
                                               {Subject, 0x20019},
                                               {Subject + L"\\Left", 0x20019},
                                               {Subject + L"\\Right", 0x20019},
                                               {Subject + L"\\Numbers", 0x20019},
                                           }));
    EXPECT_TRUE(UsesOf(Call::RegCreateKeyExW).empty());
    EXPECT_EQ(FakeWin::OpenKeys(), 0);
}

TEST(RegistryStorageFaults, ANumberTakesOneQueryAndAllOthersTwo) {
    TestRegistry registry;
    const auto queries = [](const SingleField& field, auto member) {
        EXPECT_TRUE(RegistrySerializer(Key).Serialize(field.rows, &member));
        FakeWin::ClearLog();
        EXPECT_TRUE(RegistryDeserializer(Key).Deserialize(field.rows, &member));
        return UsesOf(Call::RegQueryValueExW).size();
    };
    EXPECT_EQ(queries(SingleFieldOf<uint32_t>(), 1u), 1u);
    EXPECT_EQ(queries(SingleFieldOf<bool>(), true), 1u);
    EXPECT_EQ(queries(SingleFieldOf<float>(), 1.0f), 2u);
    EXPECT_EQ(queries(SingleFieldOf<double>(), 1.0), 2u);
    EXPECT_EQ(queries(SingleFieldOf<std::wstring>(), std::wstring(L"x")), 2u);
    EXPECT_EQ(queries(SingleFieldOf<Fruit>(), Fruit::Pear), 2u);
    EXPECT_EQ(queries(SingleFieldOf<std::vector<std::wstring>>(), std::vector<std::wstring>{L"x"}), 2u);
}

TEST(RegistryStorageFaults, WithoutTheTopKeyNothingIsWritten) {
    TestRegistry registry;
    const Sections record{};
    FakeWin::FailOn(Call::RegCreateKeyExW, Subject, ERROR_ACCESS_DENIED);
    EXPECT_FALSE(RegistrySerializer(Key).Serialize(SectionsTable, &record));
    EXPECT_FALSE(registry.KeyExists(Key));
    EXPECT_EQ(FakeWin::Uses(Call::RegSetValueExW), 0);
}

TEST(RegistryStorageFaults, ASectionThatCannotBeMadeLeavesTheOthersWritten) {
    TestRegistry registry;
    const Sections record{{1, 2}, {3, 4}, {5, 6}, 7};
    FakeWin::FailOn(Call::RegCreateKeyExW, Subject + L"\\Left", ERROR_ACCESS_DENIED);
    EXPECT_FALSE(RegistrySerializer(Key).Serialize(SectionsTable, &record));
    EXPECT_FALSE(registry.KeyExists(Key + L"\\Left"));
    EXPECT_EQ(registry.Get(Key + L"\\Right", L"Second"), DwordValue(4));
    EXPECT_EQ(registry.Get(Key + L"\\Numbers", L"1"), DwordValue(6));
    EXPECT_EQ(registry.Get(Key, L"Last"), DwordValue(7));
}

TEST(RegistryStorageFaults, AnArrayThatCannotBeMadeFailsAlone) {
    TestRegistry registry;
    const Sections record{{1, 2}, {3, 4}, {5, 6}, 7};
    FakeWin::FailOn(Call::RegCreateKeyExW, Subject + L"\\Numbers", ERROR_ACCESS_DENIED);
    EXPECT_FALSE(RegistrySerializer(Key).Serialize(SectionsTable, &record));
    EXPECT_FALSE(registry.KeyExists(Key + L"\\Numbers"));
    EXPECT_EQ(registry.Get(Key, L"Last"), DwordValue(7));
}

TEST(RegistryStorageFaults, AValueThatCannotBeWrittenFailsAlone) {
    const std::wstring subjects[] = {L"\\Left\\First", L"\\Numbers\\0", L"\\Last"};
    for (const std::wstring& subject : subjects) {
        TestRegistry registry;
        const Sections record{{1, 2}, {3, 4}, {5, 6}, 7};
        FakeWin::FailOn(Call::RegSetValueExW, Subject + subject, ERROR_ACCESS_DENIED, 1);
        EXPECT_FALSE(RegistrySerializer(Key).Serialize(SectionsTable, &record));
        EXPECT_EQ(registry.Get(Key + L"\\Left", L"Second"), DwordValue(2));
        EXPECT_EQ(registry.Get(Key + L"\\Numbers", L"1"), DwordValue(6));
    }
}

TEST(RegistryStorageFaults, EveryKindOfValueReportsThatItWasNotWritten) {
    TestRegistry registry;
    FakeWin::Fail(Call::RegSetValueExW, ERROR_ACCESS_DENIED);
    const auto write = [](const SingleField& field, auto member) {
        return RegistrySerializer(Key).Serialize(field.rows, &member);
    };
    EXPECT_FALSE(write(SingleFieldOf<bool>(), true));
    EXPECT_FALSE(write(SingleFieldOf<float>(), 1.0f));
    EXPECT_FALSE(write(SingleFieldOf<std::string>(), std::string("x")));
    EXPECT_FALSE(write(SingleFieldOf<std::wstring>(), std::wstring(L"x")));
    EXPECT_FALSE(write(SingleFieldOf<Fruit>(), Fruit::Pear));
    EXPECT_FALSE(write(SingleFieldOf<std::vector<std::string>>(), std::vector<std::string>{"x"}));
    EXPECT_FALSE(write(SingleFieldOf<std::vector<std::wstring>>(), std::vector<std::wstring>{L"x"}));
}

TEST(RegistryStorageFaults, ASectionThatCannotBeOpenedKeepsItsFields) {
    TestRegistry registry;
    const Sections stored{{1, 2}, {3, 4}, {5, 6}, 7};
    EXPECT_TRUE(RegistrySerializer(Key).Serialize(SectionsTable, &stored));
    FakeWin::FailOn(Call::RegOpenKeyExW, Subject + L"\\Left", ERROR_ACCESS_DENIED, 1);
    FakeWin::FailOn(Call::RegOpenKeyExW, Subject + L"\\Numbers", ERROR_ACCESS_DENIED, 1);
    Sections record{{9, 9}, {9, 9}, {9, 9}, 9};
    EXPECT_FALSE(RegistryDeserializer(Key).Deserialize(SectionsTable, &record));
    EXPECT_EQ(record.left.first, 9u);
    EXPECT_EQ(record.right.first, 3u);
    EXPECT_EQ(record.numbers[0], 9u);
    EXPECT_EQ(record.last, 7u);
}

TEST(RegistryStorageFaults, AValueWhoseSecondQueryFailsIsKept) {
    TestRegistry registry;
    const auto read = [](const SingleField& field, auto stored, auto member) {
        EXPECT_TRUE(RegistrySerializer(Key).Serialize(field.rows, &stored));
        FakeWin::FailNth(Call::RegQueryValueExW, 2, ERROR_ACCESS_DENIED);
        EXPECT_FALSE(RegistryDeserializer(Key).Deserialize(field.rows, &member));
        return member;
    };
    EXPECT_EQ(read(SingleFieldOf<float>(), 1.0f, 9.0f), 9.0f);
    EXPECT_EQ(read(SingleFieldOf<std::wstring>(), std::wstring(L"x"), std::wstring(L"old")), L"old");
    EXPECT_EQ(read(SingleFieldOf<Fruit>(), Fruit::Pear, Fruit::Plum), Fruit::Plum);
    EXPECT_TRUE(read(SingleFieldOf<std::vector<std::wstring>>(), std::vector<std::wstring>{L"x"},
                     std::vector<std::wstring>{L"old"})
                    .empty());
}

TEST(RegistryStorageFaults, AnExceptionOnTheWayClosesTheKeys) {
    TestRegistry registry;
    static constexpr SingleField Inner = SingleFieldOf<std::string>();
    constexpr FieldRow Table[] = {MakeRow<std::string>("Section", 0, Inner.rows), EndOfTable};
    registry.SetString(Key + L"\\Section", L"Value", std::wstring(1, wchar_t{0xDC00}));
    std::string text;
    EXPECT_ANY_THROW(RegistryDeserializer(Key).Deserialize(Table, &text));
    EXPECT_EQ(FakeWin::OpenKeys(), 0);
}

}  // namespace
