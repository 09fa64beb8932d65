#include "PresetValues.h"

#include <gtest/gtest.h>

using MetaTypes::Settings;

namespace {

template <typename T>
std::vector<int> Numbers(const Settings& section, uint32_t row, size_t count) {
    std::vector<int> numbers;
    for (size_t i = 0; i < count; ++i)
        numbers.push_back(static_cast<int>(section.Get<T>(row, i)));
    return numbers;
}

template <typename T>
void SetNumbers(Settings section, uint32_t row, const std::vector<int>& numbers) {
    for (size_t i = 0; i < numbers.size(); ++i)
        section.Get<T>(row, i) = static_cast<T>(numbers[i]);
}

}  // namespace

PresetValues ValuesOf(const Preset& preset) {
    const auto format = preset.Section(Preset::Format);
    const auto display = preset.Section(Preset::Display);
    const auto columns = preset.Section(Preset::Columns);
    const auto filter = preset.Section(Preset::Filter);
    const auto saving = preset.Section(Preset::Saving);
    const auto opening = preset.Section(Preset::Opening);
    const auto sorting = preset.Section(Preset::Sorting);
    return {
        preset.Get<std::wstring>(0),
        preset.Get<int32_t>(1),
        format.Get<ListStyle>(0),
        format.Get<bool>(1),
        display.Get<bool>(0),
        display.Get<bool>(1),
        display.Get<bool>(2),
        display.Get<bool>(3),
        display.Get<uint32_t>(4),
        display.Get<SizeStyle>(5),
        columns.Get<bool>(0),
        Numbers<FolderColumn>(columns, 1, 12),
        Numbers<bool>(columns, 2, 12),
        Numbers<FileColumn>(columns, 3, 11),
        Numbers<bool>(columns, 4, 11),
        filter.Get<int32_t>(0),
        filter.Get<std::wstring>(1),
        filter.Get<std::vector<std::wstring>>(2),
        saving.Get<SaveLocation>(0),
        saving.Get<std::wstring>(1),
        saving.Get<bool>(2),
        opening.Get<OpenMethod>(0),
        opening.Get<std::wstring>(1),
        sorting.Get<bool>(0),
        Numbers<FolderSortKey>(sorting, 1, 9),
        Numbers<SortOrder>(sorting, 2, 9),
        Numbers<FileSortKey>(sorting, 3, 7),
        Numbers<SortOrder>(sorting, 4, 7),
    };
}

PresetValues ChangedValues() {
    return {
        .name = L"Changed",
        .position = 7,
        .listStyle = ListStyle::Html,
        .enableUtf8 = false,
        .searchSubfolders = true,
        .searchHidden = true,
        .showStatistics = true,
        .showFlatStyle = true,
        .indentSize = 4000000000,
        .sizeStyle = SizeStyle::TebiBytes,
        .showHeaders = false,
        .folderColumns = {11, 10, 9, 8, 7, 6, 5, 4, 3, 2, 1, 0},
        .folderEnabled = {0, 1, 0, 1, 0, 1, 0, 1, 0, 1, 0, 1},
        .fileColumns = {10, 9, 8, 7, 6, 5, 4, 3, 2, 1, 0},
        .fileEnabled = {0, 1, 0, 1, 0, 1, 0, 1, 0, 1, 0},
        .presetSearchPattern = 8,
        .customSearchPattern = L"*.txt|*.doc",
        .excludedFolders = {L"*\\one", L"*\\two"},
        .saveLocation = SaveLocation::Custom,
        .customFolderPath = L"C:\\Lists",
        .overwriteExisting = true,
        .openMethod = OpenMethod::Nothing,
        .customProgramPath = L"C:\\Tools\\view.exe",
        .sortDigitsAsNumbers = true,
        .folderSortKeys = {8, 7, 6, 5, 4, 3, 2, 1, 0},
        .folderSortOrder = {1, 1, 0, 1, 1, 1, 1, 1, 1},
        .fileSortKeys = {6, 5, 4, 3, 2, 1, 0},
        .fileSortOrder = {1, 1, 1, 0, 1, 1, 1},
    };
}

void ChangeEveryValue(Preset& preset) {
    const PresetValues values = ChangedValues();
    preset.Get<std::wstring>(0) = values.name;
    preset.Get<int32_t>(1) = values.position;
    auto format = preset.Section(Preset::Format);
    format.Get<ListStyle>(0) = values.listStyle;
    format.Get<bool>(1) = values.enableUtf8;
    auto display = preset.Section(Preset::Display);
    display.Get<bool>(0) = values.searchSubfolders;
    display.Get<bool>(1) = values.searchHidden;
    display.Get<bool>(2) = values.showStatistics;
    display.Get<bool>(3) = values.showFlatStyle;
    display.Get<uint32_t>(4) = values.indentSize;
    display.Get<SizeStyle>(5) = values.sizeStyle;
    auto columns = preset.Section(Preset::Columns);
    columns.Get<bool>(0) = values.showHeaders;
    SetNumbers<FolderColumn>(columns, 1, values.folderColumns);
    SetNumbers<bool>(columns, 2, values.folderEnabled);
    SetNumbers<FileColumn>(columns, 3, values.fileColumns);
    SetNumbers<bool>(columns, 4, values.fileEnabled);
    auto filter = preset.Section(Preset::Filter);
    filter.Get<int32_t>(0) = values.presetSearchPattern;
    filter.Get<std::wstring>(1) = values.customSearchPattern;
    filter.Get<std::vector<std::wstring>>(2) = values.excludedFolders;
    auto saving = preset.Section(Preset::Saving);
    saving.Get<SaveLocation>(0) = values.saveLocation;
    saving.Get<std::wstring>(1) = values.customFolderPath;
    saving.Get<bool>(2) = values.overwriteExisting;
    auto opening = preset.Section(Preset::Opening);
    opening.Get<OpenMethod>(0) = values.openMethod;
    opening.Get<std::wstring>(1) = values.customProgramPath;
    auto sorting = preset.Section(Preset::Sorting);
    sorting.Get<bool>(0) = values.sortDigitsAsNumbers;
    SetNumbers<FolderSortKey>(sorting, 1, values.folderSortKeys);
    SetNumbers<SortOrder>(sorting, 2, values.folderSortOrder);
    SetNumbers<FileSortKey>(sorting, 3, values.fileSortKeys);
    SetNumbers<SortOrder>(sorting, 4, values.fileSortOrder);
}

void ExpectEqual(const PresetValues& actual, const PresetValues& expected) {
    EXPECT_EQ(actual.name, expected.name);
    EXPECT_EQ(actual.position, expected.position);
    EXPECT_EQ(actual.listStyle, expected.listStyle);
    EXPECT_EQ(actual.enableUtf8, expected.enableUtf8);
    EXPECT_EQ(actual.searchSubfolders, expected.searchSubfolders);
    EXPECT_EQ(actual.searchHidden, expected.searchHidden);
    EXPECT_EQ(actual.showStatistics, expected.showStatistics);
    EXPECT_EQ(actual.showFlatStyle, expected.showFlatStyle);
    EXPECT_EQ(actual.indentSize, expected.indentSize);
    EXPECT_EQ(actual.sizeStyle, expected.sizeStyle);
    EXPECT_EQ(actual.showHeaders, expected.showHeaders);
    EXPECT_EQ(actual.folderColumns, expected.folderColumns);
    EXPECT_EQ(actual.folderEnabled, expected.folderEnabled);
    EXPECT_EQ(actual.fileColumns, expected.fileColumns);
    EXPECT_EQ(actual.fileEnabled, expected.fileEnabled);
    EXPECT_EQ(actual.presetSearchPattern, expected.presetSearchPattern);
    EXPECT_EQ(actual.customSearchPattern, expected.customSearchPattern);
    EXPECT_EQ(actual.excludedFolders, expected.excludedFolders);
    EXPECT_EQ(actual.saveLocation, expected.saveLocation);
    EXPECT_EQ(actual.customFolderPath, expected.customFolderPath);
    EXPECT_EQ(actual.overwriteExisting, expected.overwriteExisting);
    EXPECT_EQ(actual.openMethod, expected.openMethod);
    EXPECT_EQ(actual.customProgramPath, expected.customProgramPath);
    EXPECT_EQ(actual.sortDigitsAsNumbers, expected.sortDigitsAsNumbers);
    EXPECT_EQ(actual.folderSortKeys, expected.folderSortKeys);
    EXPECT_EQ(actual.folderSortOrder, expected.folderSortOrder);
    EXPECT_EQ(actual.fileSortKeys, expected.fileSortKeys);
    EXPECT_EQ(actual.fileSortOrder, expected.fileSortOrder);
}
