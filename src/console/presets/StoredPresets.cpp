#include "console/presets/StoredPresets.h"

#include <utf8.h>

#include <set>

#include "console/Errors.h"
#include "console/Output.h"
#include "console/presets/PresetLock.h"
#include "settings/StorageKey.h"
#include "winlib/RegistryKey.h"

namespace Console {

namespace {

std::wstring DamageOf(const StoredPreset& stored) {
    return L"the preset '" + stored.preset.Key() +
           L"' is damaged; remove it with 'tamblewickc presets remove " + stored.preset.Key() + L"'";
}

}  // namespace

StoredPresets ReadPresets() {
    const PresetLock lock;
    return ReadLockedPresets();
}

StoredPresets ReadLockedPresets() {
    StoredPresets presets;
    RegistryKey root;
    if (RegOpenKeyExW(HKEY_CURRENT_USER, StorageKey, 0, KEY_READ, root.Receive()) != ERROR_SUCCESS)
        return presets;
    for (const std::wstring& key : root.EnumerateSubkeys()) {
        presets.push_back({.preset = Preset(key)});
        StoredPreset& stored = presets.back();
        try {
            stored.preset.Load();
        } catch (const utf8::invalid_utf16&) {
            stored.damaged = true;
        }
    }
    presets.sort([](const StoredPreset& a, const StoredPreset& b) {
        return a.preset.Get(Preset::Position) > b.preset.Get(Preset::Position);
    });
    return presets;
}

const StoredPreset* FindByName(const StoredPresets& presets, const std::wstring& name) {
    std::vector<const StoredPreset*> named;
    for (const StoredPreset& stored : presets)
        if (ToUtf8(stored.preset.Get(Preset::Name)) == ToUtf8(name))
            named.push_back(&stored);
    if (named.size() <= 1)
        return named.empty() ? nullptr : named.front();
    std::wstring keys;
    for (const StoredPreset* stored : named)
        keys += (keys.empty() ? L"" : L", ") + stored->preset.Key();
    throw Error(ExitCode::WrongUsage,
                L"several presets have the name '" + name + L"'; use one of the keys " + keys);
}

const StoredPreset& FindPreset(const StoredPresets& presets, const std::wstring& keyOrName) {
    for (const StoredPreset& stored : presets)
        if (stored.preset.Key() == keyOrName)
            return stored;
    const StoredPreset* const named = FindByName(presets, keyOrName);
    if (named == nullptr)
        throw Error(ExitCode::WrongUsage,
                    L"there is no preset '" + keyOrName + L"'; see 'tamblewickc presets list'");
    return *named;
}

std::vector<const StoredPreset*> FindPresets(const StoredPresets& presets,
                                             const std::vector<std::wstring>& names) {
    std::set<const StoredPreset*> named;
    for (const std::wstring& name : names)
        named.insert(&FindPreset(presets, name));
    std::vector<const StoredPreset*> found;
    for (const StoredPreset& stored : presets)
        if (named.contains(&stored))
            found.push_back(&stored);
    return found;
}

const Preset& ValuesOf(const StoredPreset& stored) {
    if (stored.damaged)
        throw Error(ExitCode::Failed, DamageOf(stored));
    return stored.preset;
}

void WarnOfDamage(const StoredPreset& stored) {
    Warn(ToUtf8(DamageOf(stored)));
}

}  // namespace Console
