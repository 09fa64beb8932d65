#include "settings/Preset.h"

#include "settings/DefaultColumns.h"
#include "settings/MainSettings.h"
#include "settings/PresetTable.h"
#include "settings/Templates.h"
#include "settings/metatypes/RegistryDeserializer.h"
#include "settings/metatypes/RegistrySerializer.h"
#include "winlib/RegistryKey.h"

namespace {

PresetRecord DefaultRecord() {
    PresetRecord record{
        .name = L"New Preset",
        .position = 0,
        .format = {.listStyle = ListStyle::Text, .enableUtf8 = true},
        .display = {.searchSubfolders = false,
                    .searchHidden = false,
                    .showStatistics = false,
                    .showFlatStyle = false,
                    .indentSize = 1,
                    .sizeStyle = SizeStyle::Dynamic},
        .columns = {.showHeaders = true,
                    .folderColumns = {},
                    .folderEnabled = {},
                    .fileColumns = {},
                    .fileEnabled = {}},
        .filter = {.presetSearchPattern = 0,
                   .customSearchPattern = L"*",
                   .excludedFolders = {DefaultExcludedFolder}},
        .saving = {.saveLocation = SaveLocation::Temporary,
                   .customFolderPath = {},
                   .overwriteExisting = false},
        .opening = {.openMethod = OpenMethod::Default, .customProgramPath = {}},
        .sorting = {.sortDigitsAsNumbers = false,
                    .folderSortKeys = {},
                    .folderSortOrder = {},
                    .fileSortKeys = {},
                    .fileSortOrder = {}},
    };
    FillColumns(DefaultFolderColumns, record.columns.folderColumns, record.columns.folderEnabled);
    FillColumns(DefaultFileColumns, record.columns.fileColumns, record.columns.fileEnabled);
    FillSortKeys(DefaultFolderSort, record.sorting.folderSortKeys, record.sorting.folderSortOrder);
    FillSortKeys(DefaultFileSort, record.sorting.fileSortKeys, record.sorting.fileSortOrder);
    return record;
}

std::wstring KeyPath(const std::wstring& key) {
    return std::wstring(MainSettings::RootKey) + L"\\" + key;
}

}  // namespace

Preset::Preset(const std::wstring& key)
    : Settings(PresetTable, &record_), key_(key), record_(DefaultRecord()) {}

Preset::Preset(const Preset& other)
    : Settings(PresetTable, &record_), key_(other.key_), record_(other.record_) {}

Preset& Preset::Assign(const Preset& other) {
    const int32_t position = record_.position;
    record_ = other.record_;
    record_.position = position;
    return *this;
}

bool Preset::Load() {
    MetaTypes::RegistryDeserializer deserializer(KeyPath(key_));
    return Deserialize(deserializer);
}

bool Preset::Save() const {
    MetaTypes::RegistrySerializer serializer(KeyPath(key_));
    return Serialize(serializer);
}

void Preset::DeleteKey() const {
    // The empty key would stand for the root key with all presets.
    if (key_.empty()) {
        return;
    }
    RegistryKey root;
    if (RegOpenKeyExW(HKEY_CURRENT_USER, MainSettings::RootKey, 0, KEY_ALL_ACCESS, root.Receive()) ==
        ERROR_SUCCESS) {
        root.DeleteTree(key_);
    }
}
