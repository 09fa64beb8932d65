#include "contextmenu/PresetMenu.h"

#include <algorithm>
#include <cwchar>

#include "contextmenu/Module.h"
#include "settings/MainSettings.h"
#include "settings/StorageKey.h"
#include "winlib/RegistryKey.h"
#include "winlib/Windows.h"

namespace {

bool HasStoredSettings() {
    RegistryKey root;
    return RegOpenKeyExW(HKEY_CURRENT_USER, StorageKey, 0, KEY_READ, root.Receive()) == ERROR_SUCCESS;
}

bool ProgramExists() {
    return GetFileAttributesW(Module::ProgramPath().c_str()) != INVALID_FILE_ATTRIBUTES;
}

// A quote cannot be part of an argument of the program, so a preset with such a key is left out.
bool CanBePassed(const std::wstring& key) {
    return key.find(L'"') == std::wstring::npos;
}

}  // namespace

std::wstring PresetMenu::Entry::Verb() const {
    return OpensWindow() ? L"tamblewick" : L"tamblewick." + key;
}

std::wstring PresetMenu::Entry::Help() const {
    return OpensWindow() ? L"Opens the window of Tamblewick."
                         : L"Lists the folder with the preset " + text + L".";
}

PresetMenu PresetMenu::Load() {
    PresetMenu menu;
    if (!ProgramExists() || !HasStoredSettings())
        return menu;
    MainSettings settings;
    settings.LoadAll();
    for (const auto& preset : settings.Presets)
        if (CanBePassed(preset->Key()))
            menu.entries_.push_back({preset->Key(), preset->Get(Preset::Name)});
    menu.entries_.push_back({L"", L"Open Tamblewick..."});
    return menu;
}

void PresetMenu::Limit(size_t count) {
    if (entries_.size() <= count)
        return;
    if (count == 0) {
        entries_.clear();
        return;
    }
    entries_.erase(entries_.begin() + static_cast<std::ptrdiff_t>(count) - 1, entries_.end() - 1);
}

std::optional<size_t> PresetMenu::Find(const std::wstring& verb) const {
    const auto entry = std::find_if(entries_.begin(), entries_.end(), [&](const Entry& candidate) {
        return _wcsicmp(candidate.Verb().c_str(), verb.c_str()) == 0;
    });
    if (entry == entries_.end())
        return std::nullopt;
    return static_cast<size_t>(entry - entries_.begin());
}
