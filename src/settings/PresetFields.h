// The fields of a preset, each in one line of a list. A section's list gives its record with the values of a
// new preset, the rows by which Preset::Get names its fields, and its field table (PresetTable.cpp). Rows are
// numbered in the order of the list.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "settings/Enumerations.h"
#include "settings/metatypes/Field.h"

// The question mark matches any drive letter.
inline constexpr const wchar_t* DefaultExcludedFolder = L"?:\\System Volume Information";

// FIELD(type, name in code and registry, member of the record, value in a new preset)

#define FORMAT_FIELDS(FIELD)                                    \
    FIELD(::ListStyle, ListStyle, listStyle, ::ListStyle::Text) \
    FIELD(bool, EnableUtf8, enableUtf8, true)

// The indent is in tabs in a text list, in steps of 16 pixels in an HTML list.
#define DISPLAY_FIELDS(FIELD)                              \
    FIELD(bool, SearchSubfolders, searchSubfolders, false) \
    FIELD(bool, SearchHidden, searchHidden, false)         \
    FIELD(bool, ShowStatistics, showStatistics, false)     \
    FIELD(bool, ShowFlatStyle, showFlatStyle, false)       \
    FIELD(uint32_t, IndentSize, indentSize, 1)             \
    FIELD(::SizeStyle, SizeStyle, sizeStyle, ::SizeStyle::Dynamic)

// The columns are in display order; an enabled flag belongs to the position, not to the column. The
// constructor of Preset fills the arrays.
#define COLUMNS_FIELDS(FIELD)                                  \
    FIELD(bool, ShowHeaders, showHeaders, true)                \
    FIELD(FolderColumnArray, FolderColumns, folderColumns, {}) \
    FIELD(FolderFlagArray, FolderEnabled, folderEnabled, {})   \
    FIELD(FileColumnArray, FileColumns, fileColumns, {})       \
    FIELD(FileFlagArray, FileEnabled, fileEnabled, {})

// PresetSearchPattern is an index into SearchFilters.
#define FILTER_FIELDS(FIELD)                                            \
    FIELD(int32_t, PresetSearchPattern, presetSearchPattern, 0)         \
    FIELD(std::wstring, CustomSearchPattern, customSearchPattern, L"*") \
    FIELD(std::vector<std::wstring>, ExcludedFolders, excludedFolders, {DefaultExcludedFolder})

#define SAVING_FIELDS(FIELD)                                                     \
    FIELD(::SaveLocation, SaveLocation, saveLocation, ::SaveLocation::Temporary) \
    FIELD(std::wstring, CustomFolderPath, customFolderPath, {})                  \
    FIELD(bool, OverwriteExisting, overwriteExisting, false)

#define OPENING_FIELDS(FIELD)                                          \
    FIELD(::OpenMethod, OpenMethod, openMethod, ::OpenMethod::Default) \
    FIELD(std::wstring, CustomProgramPath, customProgramPath, {})

// The key of the highest priority first. The constructor of Preset fills the arrays.
#define SORTING_FIELDS(FIELD)                                     \
    FIELD(bool, SortDigitsAsNumbers, sortDigitsAsNumbers, false)  \
    FIELD(FolderSortKeyArray, FolderSortKeys, folderSortKeys, {}) \
    FIELD(FolderOrderArray, FolderSortOrder, folderSortOrder, {}) \
    FIELD(FileSortKeyArray, FileSortKeys, fileSortKeys, {})       \
    FIELD(FileOrderArray, FileSortOrder, fileSortOrder, {})

// Position is counted from the bottom of the tree.
#define PRESET_FIELDS(FIELD)                       \
    FIELD(std::wstring, Name, name, L"New Preset") \
    FIELD(int32_t, Position, position, 0)          \
    PRESET_SECTIONS(FIELD)
#define PRESET_SECTIONS(FIELD)                     \
    FIELD(::Format::Record, Format, format, {})    \
    FIELD(::Display::Record, Display, display, {}) \
    FIELD(::Columns::Record, Columns, columns, {}) \
    FIELD(::Filter::Record, Filter, filter, {})    \
    FIELD(::Saving::Record, Saving, saving, {})    \
    FIELD(::Opening::Record, Opening, opening, {}) \
    FIELD(::Sorting::Record, Sorting, sorting, {})

using FolderColumnArray = std::array<FolderColumn, FolderColumnCount>;
using FolderFlagArray = std::array<bool, FolderColumnCount>;
using FileColumnArray = std::array<FileColumn, FileColumnCount>;
using FileFlagArray = std::array<bool, FileColumnCount>;
using FolderSortKeyArray = std::array<FolderSortKey, FolderSortKeyCount>;
using FolderOrderArray = std::array<SortOrder, FolderSortKeyCount>;
using FileSortKeyArray = std::array<FileSortKey, FileSortKeyCount>;
using FileOrderArray = std::array<SortOrder, FileSortKeyCount>;

// A section: Record is its record, and each field's name is the row of that field.
#define MEMBER(type, name, member, value) type member = value;
#define NUMBER(type, name, member, value) name,
#define ROW(type, name, member, value)                                           \
    static constexpr MetaTypes::Field<Record, decltype(Record::member)> name = { \
        static_cast<uint32_t>(Rows::name)};
#define DEFINE_SECTION(Section, FIELDS)                \
    struct Section {                                   \
        struct Record {                                \
            FIELDS(MEMBER)                             \
        };                                             \
        enum class Rows : uint32_t { FIELDS(NUMBER) }; \
        FIELDS(ROW)                                    \
    };

DEFINE_SECTION(Format, FORMAT_FIELDS)
DEFINE_SECTION(Display, DISPLAY_FIELDS)
DEFINE_SECTION(Columns, COLUMNS_FIELDS)
DEFINE_SECTION(Filter, FILTER_FIELDS)
DEFINE_SECTION(Saving, SAVING_FIELDS)
DEFINE_SECTION(Opening, OPENING_FIELDS)
DEFINE_SECTION(Sorting, SORTING_FIELDS)

// The record of a preset and its rows, which class Preset names.
struct PresetRecord {
    PRESET_FIELDS(MEMBER)
};
enum class PresetRows : uint32_t { PRESET_FIELDS(NUMBER) };

#undef MEMBER
#undef NUMBER
#undef ROW
#undef DEFINE_SECTION

// The row of the section in the preset that has this record.
template <typename Record>
extern const MetaTypes::Field<PresetRecord, Record> SectionRow;  // of no other type
#define SECTION_ROW(type, name, member, value)                                 \
    template <>                                                                \
    inline constexpr MetaTypes::Field<PresetRecord, type> SectionRow<type> = { \
        static_cast<uint32_t>(PresetRows::name)};
PRESET_SECTIONS(SECTION_ROW)
#undef SECTION_ROW
