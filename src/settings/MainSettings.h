// The values of the application and the list of all presets, stored in the registry of the current user. To
// be used on one thread.
#pragma once

#include <cstdint>
#include <list>
#include <memory>
#include <string>

#include "settings/Preset.h"
#include "settings/PresetKey.h"
#include "settings/StorageKey.h"
#include "settings/metatypes/Field.h"
#include "shell/ShellExtension.h"

// FIELD(type, name in code and registry, member of the record, default value)
#define MAIN_SETTINGS_FIELDS(FIELD)                  \
    FIELD(int32_t, WindowPosX, windowPosX, 100)      \
    FIELD(int32_t, WindowPosY, windowPosY, 100)      \
    FIELD(uint32_t, WindowWidth, windowWidth, 580)   \
    FIELD(uint32_t, WindowHeight, windowHeight, 360) \
    FIELD(bool, FirstRun, firstRun, true)            \
    FIELD(bool, ConfirmExit, confirmExit, false)

struct MainSettingsRecord {
#define MEMBER(type, name, member, value) type member = value;
    MAIN_SETTINGS_FIELDS(MEMBER)
#undef MEMBER
};

class MainSettings : public MetaTypes::SettingsOf<MainSettingsRecord> {
    enum class Rows : uint32_t {
#define NUMBER(type, name, member, value) name,
        MAIN_SETTINGS_FIELDS(NUMBER)
#undef NUMBER
    };

public:
#define ROW(type, name, member, value) \
    static constexpr MetaTypes::Field<MainSettingsRecord, type> name = {static_cast<uint32_t>(Rows::name)};
    MAIN_SETTINGS_FIELDS(ROW)
#undef ROW

    static constexpr const wchar_t* RootKey = StorageKey;

    // Sets the default values, with the window in the middle of the desktop. Does not access the registry.
    MainSettings();
    MainSettings(const MainSettings&) = delete;
    MainSettings& operator=(const MainSettings&) = delete;

    // Reads the application's values and all presets, in the order of the tree. What cannot be read keeps its
    // default; every subkey becomes a preset. Returns whether all of the application's values were read.
    bool LoadAll();

    // Writes the application's values. Returns whether all were written.
    bool SaveMain() const;

    // Adds a preset with default values and the key, by default a new one, and stores it by renumbering. The
    // settings own it.
    Preset& CreatePreset(const std::wstring& key = MakePresetKey());

    // As CreatePreset, then sets the values of a template, which are not yet stored.
    Preset& CreateFromTemplate(uint32_t number, const std::wstring& key = MakePresetKey());

    // Returns the preset with this key, loading it from the registry if it is not in the list. Null if there
    // is none.
    Preset* FindPreset(const std::wstring& key);

    // Sorts the list by descending position, numbers the positions from 1 at the bottom and saves every
    // preset.
    void Renumber();

    // Removes the preset from the list and destroys it. Its registry key stays; see Preset::DeleteKey.
    void Remove(const Preset& preset);

    std::list<std::unique_ptr<Preset>> Presets;  // from the top of the tree
    ShellExtension Shell;

private:
    void SortByPosition();

    MainSettingsRecord record_;
};
