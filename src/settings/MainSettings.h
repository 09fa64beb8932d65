// The application's own values and the list of all presets, as they stand in the registry of the current
// user. Used on the user-interface thread only.
#pragma once

#include <cstdint>
#include <list>
#include <memory>
#include <string>

#include "settings/Preset.h"
#include "settings/PresetKey.h"
#include "settings/metatypes/Settings.h"
#include "shell/ShellExtension.h"

struct MainSettingsRecord {
    int32_t windowPosX;
    int32_t windowPosY;
    uint32_t windowWidth;
    uint32_t windowHeight;
    bool firstRun;
    bool confirmExit;
};

class MainSettings : public MetaTypes::Settings {
public:
    enum Row : uint32_t { WindowPosX, WindowPosY, WindowWidth, WindowHeight, FirstRun, ConfirmExit };

    // The registry key, below HKEY_CURRENT_USER, of all that is stored; each preset is a subkey of it.
    static constexpr const wchar_t* RootKey = L"Software\\Tamblewick";

    // The default values, with the window in the middle of the desktop. Touches no registry.
    MainSettings();
    MainSettings(const MainSettings&) = delete;
    MainSettings& operator=(const MainSettings&) = delete;

    // Reads the application's values and all presets, in the order of the tree. What cannot be read keeps its
    // default; every subkey becomes a preset. True when all of the application's values were read.
    bool LoadAll();

    // Writes the application's values. True when all were written.
    bool SaveMain() const;

    // Appends a preset with default values and the key, by default a fresh one, renumbers and so stores it.
    // The settings keep ownership.
    Preset& CreatePreset(const std::wstring& key = MakePresetKey());

    // CreatePreset and the values of a template, which are not stored yet.
    Preset& CreateFromTemplate(uint32_t number, const std::wstring& key = MakePresetKey());

    // The preset of this key: from the list, or else loaded from the registry and appended to the list. Null
    // if there is none.
    Preset* FindPreset(const std::wstring& key);

    // Brings the list into descending order of position, counts the positions from 1 at the bottom and saves
    // every preset.
    void Renumber();

    // Destroys the preset and takes it out of the list; its registry key stays. See Preset::DeleteKey.
    void Remove(const Preset& preset);

    std::list<std::unique_ptr<Preset>> Presets;  // the top of the tree first
    ShellExtension Shell;

private:
    void SortByPosition();

    MainSettingsRecord record_;
};
