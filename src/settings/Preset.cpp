#include "settings/Preset.h"

#include "settings/OrderedArrays.h"
#include "settings/PresetTable.h"
#include "settings/StorageKey.h"
#include "settings/metatypes/RegistryDeserializer.h"
#include "settings/metatypes/RegistrySerializer.h"
#include "winlib/RegistryKey.h"

namespace {

PresetRecord DefaultRecord() {
    PresetRecord record;
    FillColumns(DefaultFolderColumns, record.columns.folderColumns, record.columns.folderEnabled);
    FillColumns(DefaultFileColumns, record.columns.fileColumns, record.columns.fileEnabled);
    FillSortKeys(DefaultFolderSort, record.sorting.folderSortKeys, record.sorting.folderSortOrder);
    FillSortKeys(DefaultFileSort, record.sorting.fileSortKeys, record.sorting.fileSortOrder);
    return record;
}

std::wstring KeyPath(const std::wstring& key) {
    return std::wstring(StorageKey) + L"\\" + key;
}

}  // namespace

Preset::Preset(const std::wstring& key)
    : SettingsOf(PresetTable, &record_), key_(key), record_(DefaultRecord()) {}

Preset::Preset(const Preset& other)
    : SettingsOf(PresetTable, &record_), key_(other.key_), record_(other.record_) {}

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
    // The empty key is the root key, with all presets.
    if (key_.empty())
        return;
    RegistryKey root;
    if (RegOpenKeyExW(HKEY_CURRENT_USER, StorageKey, 0, KEY_ALL_ACCESS, root.Receive()) == ERROR_SUCCESS)
        root.DeleteTree(key_);
}
