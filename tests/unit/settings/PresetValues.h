// All values of a preset in one comparable piece, read through the rows as any other code reads them.
#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "settings/Preset.h"

struct PresetValues {
    std::wstring name = L"New Preset";
    int32_t position = 0;
    ListStyle listStyle = ListStyle::Text;
    bool enableUtf8 = true;
    bool searchSubfolders = false;
    bool searchHidden = false;
    bool showStatistics = false;
    bool showFlatStyle = false;
    uint32_t indentSize = 1;
    SizeStyle sizeStyle = SizeStyle::Dynamic;
    bool showHeaders = true;
    // Numbers of the enumerations, so that an expectation can be written as a plain row.
    std::vector<int> folderColumns = {3, 0, 1, 2, 4, 5, 6, 7, 8, 9, 10, 11};
    std::vector<int> folderEnabled = {1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0};
    std::vector<int> fileColumns = {3, 0, 1, 2, 4, 5, 6, 7, 8, 9, 10};
    std::vector<int> fileEnabled = {1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0};
    int32_t presetSearchPattern = 0;
    std::wstring customSearchPattern = L"*";
    std::vector<std::wstring> excludedFolders = {L"?:\\System Volume Information"};
    SaveLocation saveLocation = SaveLocation::Temporary;
    std::wstring customFolderPath;
    bool overwriteExisting = false;
    OpenMethod openMethod = OpenMethod::Default;
    std::wstring customProgramPath;
    bool sortDigitsAsNumbers = false;
    std::vector<int> folderSortKeys = {0, 1, 2, 3, 4, 5, 6, 7, 8};
    std::vector<int> folderSortOrder = {0, 0, 1, 0, 0, 0, 0, 0, 0};
    std::vector<int> fileSortKeys = {0, 1, 2, 3, 4, 5, 6};
    std::vector<int> fileSortOrder = {0, 0, 0, 1, 0, 0, 0};
};

PresetValues ValuesOf(const Preset& preset);

// Gives the preset a value other than the default in every field.
void ChangeEveryValue(Preset& preset);

// The values that ChangeEveryValue gives; the position is 7.
PresetValues ChangedValues();

// Compares field by field, so that a failure names the field.
void ExpectEqual(const PresetValues& actual, const PresetValues& expected);
