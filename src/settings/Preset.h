// One complete, named set of listing options: what is searched, which columns appear, how entries are sorted,
// where the list is saved and how it is opened. A preset lives under its own registry key.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "settings/Enumerations.h"
#include "settings/metatypes/Settings.h"

// The record of a preset, in the order of its field table.
struct PresetRecord {
    struct FormatSection {
        ListStyle listStyle;
        bool enableUtf8;
    };
    struct DisplaySection {
        bool searchSubfolders;
        bool searchHidden;
        bool showStatistics;
        bool showFlatStyle;
        uint32_t indentSize;  // tabs in a text list, steps of 16 pixels in an HTML list
        SizeStyle sizeStyle;
    };
    struct ColumnsSection {
        bool showHeaders;
        std::array<FolderColumn, FolderColumnCount> folderColumns;  // in display order
        std::array<bool, FolderColumnCount> folderEnabled;          // of the position, not of the column
        std::array<FileColumn, FileColumnCount> fileColumns;
        std::array<bool, FileColumnCount> fileEnabled;
    };
    struct FilterSection {
        int32_t presetSearchPattern;  // index into Scanner::SearchFilters
        std::wstring customSearchPattern;
        std::vector<std::wstring> excludedFolders;
    };
    struct SavingSection {
        SaveLocation saveLocation;
        std::wstring customFolderPath;
        bool overwriteExisting;
    };
    struct OpeningSection {
        OpenMethod openMethod;
        std::wstring customProgramPath;
    };
    struct SortingSection {
        bool sortDigitsAsNumbers;
        std::array<FolderSortKey, FolderSortKeyCount> folderSortKeys;  // highest priority first
        std::array<SortOrder, FolderSortKeyCount> folderSortOrder;
        std::array<FileSortKey, FileSortKeyCount> fileSortKeys;
        std::array<SortOrder, FileSortKeyCount> fileSortOrder;
    };

    std::wstring name;
    int32_t position;  // counted from the bottom of the tree
    FormatSection format;
    DisplaySection display;
    ColumnsSection columns;
    FilterSection filter;
    SavingSection saving;
    OpeningSection opening;
    SortingSection sorting;
};

class Preset : public MetaTypes::Settings {
public:
    // Row indices for Settings::Get and Settings::Section, one list for each table.
    enum Row : uint32_t { Name, Position, Format, Display, Columns, Filter, Saving, Opening, Sorting };
    struct FormatRow {
        enum : uint32_t { ListStyle, EnableUtf8 };
    };
    struct DisplayRow {
        enum : uint32_t {
            SearchSubfolders,
            SearchHidden,
            ShowStatistics,
            ShowFlatStyle,
            IndentSize,
            SizeStyle,
        };
    };
    struct ColumnsRow {
        enum : uint32_t { ShowHeaders, FolderColumns, FolderEnabled, FileColumns, FileEnabled };
    };
    struct FilterRow {
        enum : uint32_t { PresetSearchPattern, CustomSearchPattern, ExcludedFolders };
    };
    struct SavingRow {
        enum : uint32_t { SaveLocation, CustomFolderPath, OverwriteExisting };
    };
    struct OpeningRow {
        enum : uint32_t { OpenMethod, CustomProgramPath };
    };
    struct SortingRow {
        enum : uint32_t { SortDigitsAsNumbers, FolderSortKeys, FolderSortOrder, FileSortKeys, FileSortOrder };
    };

    // A preset with default values that will be stored under this key. Touches no registry.
    explicit Preset(const std::wstring& key);

    // A second object with the same key and the same values, for a job that must not see later edits.
    Preset(const Preset& other);
    Preset& operator=(const Preset&) = delete;

    // Takes every value of the other preset, its name included, but keeps the own position and key.
    virtual Preset& Assign(const Preset& other);

    // The name of the preset's registry key, never changed.
    const std::wstring& Key() const { return key_; }

    // Read and write the preset's registry key. What cannot be read keeps its value; what cannot be written
    // is lost in silence. The results say whether every field succeeded.
    bool Load();
    bool Save() const;

    // Removes the preset's registry key with all below it. Does nothing if the key is the empty text.
    void DeleteKey() const;

private:
    std::wstring key_;
    PresetRecord record_;
};
