#include "settings/PresetTable.h"

#include <cstddef>

#include "settings/EnumTables.h"
#include "settings/Preset.h"
#include "settings/metatypes/MakeRow.h"

using MetaTypes::EndOfTable;
using MetaTypes::FieldRow;
using MetaTypes::MakeRow;

// FIELD(record, name, member[, sub-table])
#define FIELD(record, name, member, ...) \
    MakeRow<decltype(record::member)>(name, offsetof(record, member) __VA_OPT__(, ) __VA_ARGS__)

namespace {

using Format = PresetRecord::FormatSection;
constexpr FieldRow FormatTable[] = {
    FIELD(Format, "ListStyle", listStyle, ListStyleNames),
    FIELD(Format, "EnableUtf8", enableUtf8),
    EndOfTable,
};

using Display = PresetRecord::DisplaySection;
constexpr FieldRow DisplayTable[] = {
    FIELD(Display, "SearchSubfolders", searchSubfolders),
    FIELD(Display, "SearchHidden", searchHidden),
    FIELD(Display, "ShowStatistics", showStatistics),
    FIELD(Display, "ShowFlatStyle", showFlatStyle),
    FIELD(Display, "IndentSize", indentSize),
    FIELD(Display, "SizeStyle", sizeStyle, SizeStyleNames),
    EndOfTable,
};

using Columns = PresetRecord::ColumnsSection;
constexpr FieldRow ColumnsTable[] = {
    FIELD(Columns, "ShowHeaders", showHeaders),
    FIELD(Columns, "FolderColumns", folderColumns, FolderColumnNames),
    FIELD(Columns, "FolderEnabled", folderEnabled),
    FIELD(Columns, "FileColumns", fileColumns, FileColumnNames),
    FIELD(Columns, "FileEnabled", fileEnabled),
    EndOfTable,
};

using Filter = PresetRecord::FilterSection;
constexpr FieldRow FilterTable[] = {
    FIELD(Filter, "PresetSearchPattern", presetSearchPattern),
    FIELD(Filter, "CustomSearchPattern", customSearchPattern),
    FIELD(Filter, "ExcludedFolders", excludedFolders),
    EndOfTable,
};

using Saving = PresetRecord::SavingSection;
constexpr FieldRow SavingTable[] = {
    FIELD(Saving, "SaveLocation", saveLocation, SaveLocationNames),
    FIELD(Saving, "CustomFolderPath", customFolderPath),
    FIELD(Saving, "OverwriteExisting", overwriteExisting),
    EndOfTable,
};

using Opening = PresetRecord::OpeningSection;
constexpr FieldRow OpeningTable[] = {
    FIELD(Opening, "OpenMethod", openMethod, OpenMethodNames),
    FIELD(Opening, "CustomProgramPath", customProgramPath),
    EndOfTable,
};

using Sorting = PresetRecord::SortingSection;
constexpr FieldRow SortingTable[] = {
    FIELD(Sorting, "SortDigitsAsNumbers", sortDigitsAsNumbers),
    FIELD(Sorting, "FolderSortKeys", folderSortKeys, FolderSortKeyNames),
    FIELD(Sorting, "FolderSortOrder", folderSortOrder, SortOrderNames),
    FIELD(Sorting, "FileSortKeys", fileSortKeys, FileSortKeyNames),
    FIELD(Sorting, "FileSortOrder", fileSortOrder, SortOrderNames),
    EndOfTable,
};

}  // namespace

constinit const FieldRow PresetTable[] = {
    FIELD(PresetRecord, "Name", name),
    FIELD(PresetRecord, "Position", position),
    FIELD(PresetRecord, "Format", format, FormatTable),
    FIELD(PresetRecord, "Display", display, DisplayTable),
    FIELD(PresetRecord, "Columns", columns, ColumnsTable),
    FIELD(PresetRecord, "Filter", filter, FilterTable),
    FIELD(PresetRecord, "Saving", saving, SavingTable),
    FIELD(PresetRecord, "Opening", opening, OpeningTable),
    FIELD(PresetRecord, "Sorting", sorting, SortingTable),
    EndOfTable,
};

#undef FIELD
