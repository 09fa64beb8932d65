#include "settings/Preset.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "PresetValues.h"

namespace {

TEST(Preset, ANewOneHasTheDefaults) {
    const Preset preset(L"abc");
    EXPECT_EQ(preset.Key(), L"abc");
    ExpectEqual(ValuesOf(preset), PresetValues{});
}

TEST(Preset, EnumeratedDefaultsAreInRange) {
    const PresetValues values = ValuesOf(Preset(L""));
    const auto expectPermutation = [](std::vector<int> numbers, int count) {
        std::ranges::sort(numbers);
        ASSERT_EQ(numbers.size(), static_cast<size_t>(count));
        for (int i = 0; i < count; ++i)
            EXPECT_EQ(numbers[static_cast<size_t>(i)], i);
    };
    expectPermutation(values.folderColumns, 12);
    expectPermutation(values.fileColumns, 11);
    expectPermutation(values.folderSortKeys, 9);
    expectPermutation(values.fileSortKeys, 7);
}

TEST(Preset, AssignTakesEverythingButPositionAndKey) {
    Preset source(L"source");
    ChangeEveryValue(source);
    Preset target(L"target");
    target.Get(Preset::Position) = 3;
    EXPECT_EQ(&target.Assign(source), &target);
    EXPECT_EQ(target.Key(), L"target");
    PresetValues expected = ChangedValues();
    expected.position = 3;
    ExpectEqual(ValuesOf(target), expected);
    ExpectEqual(ValuesOf(source), ChangedValues());
}

TEST(Preset, AssignFromItselfChangesNothing) {
    Preset preset(L"key");
    ChangeEveryValue(preset);
    preset.Assign(preset);
    ExpectEqual(ValuesOf(preset), ChangedValues());
}

TEST(Preset, ACopyIsIndependent) {
    Preset source(L"key");
    ChangeEveryValue(source);
    Preset copy(source);
    EXPECT_EQ(copy.Key(), L"key");
    ExpectEqual(ValuesOf(copy), ChangedValues());

    source.Get(Preset::Name) = L"Later";
    source.Get(Display::SearchHidden) = false;
    ExpectEqual(ValuesOf(copy), ChangedValues());
    copy.Get(Preset::Name) = L"Mine";
    EXPECT_EQ(source.Get(Preset::Name), L"Later");
}

TEST(Preset, FieldsAreGuardedByTheirTypes) {
    Preset preset(L"key");
    EXPECT_THROW(preset.Get<bool>(Preset::Name.row), std::bad_cast);
    EXPECT_THROW(preset.Get<uint32_t>(Preset::Position.row), std::bad_cast);
    EXPECT_THROW(preset.Section(Preset::Name.row), std::bad_cast);
    auto display = preset.Section(Preset::Display);
    EXPECT_THROW(display.Get<int32_t>(Display::IndentSize.row), std::bad_cast);
    EXPECT_THROW(display.Get<uint32_t>(Display::SearchHidden.row), std::bad_cast);
    auto columns = preset.Section(Preset::Columns);
    EXPECT_THROW(columns.Get(Columns::FolderColumns, 12), std::bad_cast);
    EXPECT_THROW(columns.Get<FolderColumn>(Columns::FolderColumns.row), std::bad_cast);
    EXPECT_THROW(columns.Get<bool>(Columns::ShowHeaders.row, 0), std::bad_cast);
}

TEST(Preset, AFieldOfASectionIsTheOneOfTheSectionsView) {
    Preset preset(L"key");
    EXPECT_EQ(&preset.Get(Display::IndentSize), &preset.Get(Display::IndentSize));
    EXPECT_EQ(&preset.Get(Sorting::FileSortOrder, 6), &preset.Get(Sorting::FileSortOrder, 6));
}

// Whether a field can be read from a view of a section, and whether it has the type T there.
template <typename View, typename Field>
constexpr bool HasField = requires(View view, Field field) {
    view.Get(field);
};
template <typename T, typename Field>
constexpr bool HasType = std::is_same_v<decltype(std::declval<Preset&>().Get(Field())), T&>;

TEST(Preset, AFieldOfAnotherSectionDoesNotCompile) {
    using View = MetaTypes::SettingsOf<Display::Record>;
    EXPECT_TRUE((HasField<View, decltype(Display::SearchHidden)>));
    EXPECT_FALSE((HasField<View, decltype(Format::EnableUtf8)>));
    EXPECT_FALSE((HasField<View, decltype(Preset::Position)>));
}

TEST(Preset, AFieldHasTheTypeOfItsMember) {
    EXPECT_TRUE((HasType<uint32_t, decltype(Display::IndentSize)>));
    EXPECT_TRUE((HasType<bool, decltype(Display::SearchHidden)>));
    EXPECT_TRUE((HasType<int32_t, decltype(Filter::PresetSearchPattern)>));
    EXPECT_TRUE((HasType<std::wstring, decltype(Preset::Name)>));
    EXPECT_TRUE((HasType<ListStyle, decltype(Format::ListStyle)>));
}

}  // namespace
