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
        for (int i = 0; i < count; ++i) {
            EXPECT_EQ(numbers[static_cast<size_t>(i)], i);
        }
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
    target.Get<int32_t>(Preset::Position) = 3;
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

    source.Get<std::wstring>(Preset::Name) = L"Later";
    source.Section(Preset::Display).Get<bool>(Preset::DisplayRow::SearchHidden) = false;
    ExpectEqual(ValuesOf(copy), ChangedValues());
    copy.Get<std::wstring>(Preset::Name) = L"Mine";
    EXPECT_EQ(source.Get<std::wstring>(Preset::Name), L"Later");
}

TEST(Preset, FieldsAreGuardedByTheirTypes) {
    Preset preset(L"key");
    EXPECT_THROW(preset.Get<bool>(Preset::Name), std::bad_cast);
    EXPECT_THROW(preset.Get<uint32_t>(Preset::Position), std::bad_cast);
    EXPECT_THROW(preset.Section(Preset::Name), std::bad_cast);
    MetaTypes::Settings display = preset.Section(Preset::Display);
    EXPECT_THROW(display.Get<int32_t>(Preset::DisplayRow::IndentSize), std::bad_cast);
    EXPECT_THROW(display.Get<uint32_t>(Preset::DisplayRow::SearchHidden), std::bad_cast);
    MetaTypes::Settings columns = preset.Section(Preset::Columns);
    EXPECT_THROW(columns.Get<FolderColumn>(Preset::ColumnsRow::FolderColumns, 12), std::bad_cast);
    EXPECT_THROW(columns.Get<FolderColumn>(Preset::ColumnsRow::FolderColumns), std::bad_cast);
    EXPECT_THROW(columns.Get<bool>(Preset::ColumnsRow::ShowHeaders, 0), std::bad_cast);
}

}  // namespace
