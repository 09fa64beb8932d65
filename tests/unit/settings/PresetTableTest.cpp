#include "settings/PresetTable.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "settings/EnumTables.h"
#include "settings/Preset.h"

using MetaTypes::FieldRow;
using MetaTypes::TypeCode;

namespace {

struct ExpectedRow {
    std::string name;
    uint32_t code;
    uint32_t count;
    uint32_t size;  // 0 where it is the platform's
    const void* names = nullptr;
};

const FieldRow* SectionTable(uint32_t row) {
    return static_cast<const FieldRow*>(PresetTable[row].subTable);
}

void ExpectTable(const FieldRow* table, const std::vector<ExpectedRow>& expected) {
    for (const ExpectedRow& row : expected) {
        ASSERT_NE(table->name, nullptr) << "no row for " << row.name;
        EXPECT_EQ(table->name, row.name);
        EXPECT_EQ(static_cast<uint32_t>(table->type), row.code) << row.name;
        EXPECT_EQ(table->count, row.count) << row.name;
        if (row.size != 0)
            EXPECT_EQ(table->size, row.size) << row.name;
        if (table->type != TypeCode::Section)
            EXPECT_EQ(table->subTable, row.names) << row.name;
        ++table;
    }
    EXPECT_EQ(table->name, nullptr);
}

TEST(PresetTable, TheRecordHasItsRows) {
    ExpectTable(PresetTable, {
                                 {"Name", 18, 1, sizeof(std::wstring)},
                                 {"Position", 10, 1, 4},
                                 {"Format", 16, 1, 0},
                                 {"Display", 16, 1, 0},
                                 {"Columns", 16, 1, 0},
                                 {"Filter", 16, 1, 0},
                                 {"Saving", 16, 1, 0},
                                 {"Opening", 16, 1, 0},
                                 {"Sorting", 16, 1, 0},
                             });
}

TEST(PresetTable, FormatHasItsRows) {
    ExpectTable(SectionTable(2), {{"ListStyle", 15, 1, 4, ListStyleNames}, {"EnableUtf8", 4, 1, 1}});
}

TEST(PresetTable, DisplayHasItsRows) {
    ExpectTable(SectionTable(3), {
                                     {"SearchSubfolders", 4, 1, 1},
                                     {"SearchHidden", 4, 1, 1},
                                     {"ShowStatistics", 4, 1, 1},
                                     {"ShowFlatStyle", 4, 1, 1},
                                     {"IndentSize", 9, 1, 4},
                                     {"SizeStyle", 15, 1, 4, SizeStyleNames},
                                 });
}

TEST(PresetTable, ColumnsHasItsRows) {
    ExpectTable(SectionTable(4), {
                                     {"ShowHeaders", 4, 1, 1},
                                     {"FolderColumns", 15, 12, 4, FolderColumnNames},
                                     {"FolderEnabled", 4, 12, 1},
                                     {"FileColumns", 15, 11, 4, FileColumnNames},
                                     {"FileEnabled", 4, 11, 1},
                                 });
}

TEST(PresetTable, FilterHasItsRows) {
    ExpectTable(SectionTable(5), {
                                     {"PresetSearchPattern", 10, 1, 4},
                                     {"CustomSearchPattern", 18, 1, sizeof(std::wstring)},
                                     {"ExcludedFolders", 34, 1, sizeof(std::vector<std::wstring>)},
                                 });
}

TEST(PresetTable, SavingHasItsRows) {
    ExpectTable(SectionTable(6), {
                                     {"SaveLocation", 15, 1, 4, SaveLocationNames},
                                     {"CustomFolderPath", 18, 1, sizeof(std::wstring)},
                                     {"OverwriteExisting", 4, 1, 1},
                                 });
}

TEST(PresetTable, OpeningHasItsRows) {
    ExpectTable(SectionTable(7), {
                                     {"OpenMethod", 15, 1, 4, OpenMethodNames},
                                     {"CustomProgramPath", 18, 1, sizeof(std::wstring)},
                                 });
}

TEST(PresetTable, SortingHasItsRows) {
    ExpectTable(SectionTable(8), {
                                     {"SortDigitsAsNumbers", 4, 1, 1},
                                     {"FolderSortKeys", 15, 9, 4, FolderSortKeyNames},
                                     {"FolderSortOrder", 15, 9, 4, SortOrderNames},
                                     {"FileSortKeys", 15, 7, 4, FileSortKeyNames},
                                     {"FileSortOrder", 15, 7, 4, SortOrderNames},
                                 });
}

// The row indices of the class are what all other code goes by.
TEST(PresetTable, TheRowIndicesOfTheClassNameTheirRows) {
    const auto name = [](auto section, auto field) {
        return std::string(SectionTable(section.row)[field.row].name);
    };
    EXPECT_STREQ(PresetTable[Preset::Name.row].name, "Name");
    EXPECT_STREQ(PresetTable[Preset::Position.row].name, "Position");
    EXPECT_STREQ(PresetTable[Preset::Format.row].name, "Format");
    EXPECT_STREQ(PresetTable[Preset::Display.row].name, "Display");
    EXPECT_STREQ(PresetTable[Preset::Columns.row].name, "Columns");
    EXPECT_STREQ(PresetTable[Preset::Filter.row].name, "Filter");
    EXPECT_STREQ(PresetTable[Preset::Saving.row].name, "Saving");
    EXPECT_STREQ(PresetTable[Preset::Opening.row].name, "Opening");
    EXPECT_STREQ(PresetTable[Preset::Sorting.row].name, "Sorting");
    EXPECT_EQ(name(Preset::Format, Format::EnableUtf8), "EnableUtf8");
    EXPECT_EQ(name(Preset::Display, Display::SizeStyle), "SizeStyle");
    EXPECT_EQ(name(Preset::Columns, Columns::FileEnabled), "FileEnabled");
    EXPECT_EQ(name(Preset::Filter, Filter::ExcludedFolders), "ExcludedFolders");
    EXPECT_EQ(name(Preset::Saving, Saving::OverwriteExisting), "OverwriteExisting");
    EXPECT_EQ(name(Preset::Opening, Opening::CustomProgramPath), "CustomProgramPath");
    EXPECT_EQ(name(Preset::Sorting, Sorting::FileSortOrder), "FileSortOrder");
}

// Names are unique without regard to case, as the registry has them; fields follow each other and
// within their record.
void ExpectSound(const FieldRow* table, size_t recordSize) {
    std::set<std::string> names;
    size_t end = 0;
    for (; table->name; ++table) {
        std::string lower = table->name;
        std::ranges::transform(lower, lower.begin(), [](char c) { return static_cast<char>(c | 0x20); });
        EXPECT_TRUE(names.insert(lower).second) << table->name;
        EXPECT_GE(table->offset, end) << table->name;
        end = table->offset + size_t{table->size} * table->count;
        EXPECT_LE(end, recordSize) << table->name;
        if (table->type == TypeCode::Section)
            ExpectSound(static_cast<const FieldRow*>(table->subTable), table->size);
    }
}

TEST(PresetTable, FieldsDoNotOverlapAndNamesAreUnique) {
    ExpectSound(PresetTable, sizeof(PresetRecord));
}

}  // namespace
