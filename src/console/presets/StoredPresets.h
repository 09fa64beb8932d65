// The presets of the registry. Each is read on its own, so that a damaged one does not keep the others from
// being used.
#pragma once

#include <list>
#include <string>
#include <vector>

#include "settings/Preset.h"

namespace Console {

struct StoredPreset {
    Preset preset;

    // The registry has a text for one of the preset's words that is no UTF-16. The values that follow it
    // could not be read and are those of a new preset.
    bool damaged = false;
};

// From the top of the window's tree.
using StoredPresets = std::list<StoredPreset>;

// Reads all presets while no other process of this program changes them. Throws Error.
StoredPresets ReadPresets();

// The same for a caller that has the lock.
StoredPresets ReadLockedPresets();

// Returns the only preset with this name; null if there is none. Half a surrogate pair in a name is taken for
// U+FFFD, as it is printed. Throws Error if several presets have the name.
const StoredPreset* FindByName(const StoredPresets& presets, const std::wstring& name);

// Returns the preset with this key, or else FindByName. Throws Error.
const StoredPreset& FindPreset(const StoredPresets& presets, const std::wstring& keyOrName);

// Returns the presets with these keys or names, each once and in the order of the list. Throws Error.
std::vector<const StoredPreset*> FindPresets(const StoredPresets& presets,
                                             const std::vector<std::wstring>& names);

// Returns the values of a preset. Throws Error if it is damaged.
const Preset& ValuesOf(const StoredPreset& stored);

// Prints a warning for a preset that is damaged.
void WarnOfDamage(const StoredPreset& stored);

}  // namespace Console
