#include "settings/MainSettings.h"

#include <cstddef>

#include "settings/Templates.h"
#include "settings/metatypes/MakeRow.h"
#include "settings/metatypes/RegistryDeserializer.h"
#include "settings/metatypes/RegistrySerializer.h"
#include "shell/ContextMenuClass.h"
#include "winlib/RegistryKey.h"

using MetaTypes::EndOfTable;
using MetaTypes::FieldRow;
using MetaTypes::MakeRow;

namespace {

#define ROW(type, name, member, value) MakeRow<type>(#name, offsetof(MainSettingsRecord, member)),
constexpr FieldRow MainSettingsTable[] = {MAIN_SETTINGS_FIELDS(ROW) EndOfTable};
#undef ROW

// Unsigned: on a desktop smaller than the window the position becomes very large.
int32_t Centre(LONG low, LONG high, uint32_t extent) {
    return static_cast<int32_t>((static_cast<uint32_t>(high) - extent - static_cast<uint32_t>(low)) >> 1);
}

// Returns the names of all subkeys of the root key: the keys of the presets.
std::vector<std::wstring> StoredKeys() {
    RegistryKey root;
    if (RegOpenKeyExW(HKEY_CURRENT_USER, StorageKey, 0, KEY_READ, root.Receive()) != ERROR_SUCCESS)
        return {};
    return root.EnumerateSubkeys();
}

// Compares by the rules of the user's locale, case-sensitively.
bool AreEqual(const std::wstring& a, const std::wstring& b) {
    const int result = CompareStringW(LOCALE_USER_DEFAULT, 0, a.c_str(), -1, b.c_str(), -1);
    return result != 0 ? result == CSTR_EQUAL : a == b;
}

}  // namespace

MainSettings::MainSettings()
    : SettingsOf(MainSettingsTable, &record_), Shell(ContextMenuName, ContextMenuClassId) {
    if (const HWND desktop = GetDesktopWindow()) {
        RECT area{};
        GetWindowRect(desktop, &area);
        record_.windowPosX = Centre(area.left, area.right, record_.windowWidth);
        record_.windowPosY = Centre(area.top, area.bottom, record_.windowHeight);
    }
}

bool MainSettings::LoadAll() {
    MetaTypes::RegistryDeserializer deserializer(StorageKey);
    const bool result = Deserialize(deserializer);
    for (const std::wstring& key : StoredKeys()) {
        Presets.push_back(std::make_unique<Preset>(key));
        Presets.back()->Load();
    }
    SortByPosition();
    return result;
}

bool MainSettings::SaveMain() const {
    MetaTypes::RegistrySerializer serializer(StorageKey);
    return Serialize(serializer);
}

Preset& MainSettings::CreatePreset(const std::wstring& key) {
    Preset& preset = *Presets.emplace_back(std::make_unique<Preset>(key));
    Renumber();
    return preset;
}

Preset& MainSettings::CreateFromTemplate(uint32_t number, const std::wstring& key) {
    Preset& preset = CreatePreset(key);
    ApplyTemplate(preset, number);
    return preset;
}

Preset* MainSettings::FindPreset(const std::wstring& key) {
    for (const auto& preset : Presets)
        if (AreEqual(key, preset->Key()))
            return preset.get();
    for (const std::wstring& name : StoredKeys()) {
        if (AreEqual(key, name)) {
            Presets.push_back(std::make_unique<Preset>(key));
            Presets.back()->Load();
            return Presets.back().get();
        }
    }
    return nullptr;
}

void MainSettings::Renumber() {
    SortByPosition();
    int32_t position = 0;
    for (auto preset = Presets.rbegin(); preset != Presets.rend(); ++preset) {
        (*preset)->Get(Preset::Position) = ++position;
        (*preset)->Save();
    }
}

void MainSettings::Remove(const Preset& preset) {
    Presets.remove_if([&](const std::unique_ptr<Preset>& other) { return other.get() == &preset; });
}

void MainSettings::SortByPosition() {
    Presets.sort([](const std::unique_ptr<Preset>& a, const std::unique_ptr<Preset>& b) {
        return a->Get(Preset::Position) > b->Get<int32_t>(Preset::Position);
    });
}
