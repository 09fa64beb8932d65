// A change of the stored presets, of which all or nothing is stored: what was changed is undone unless Commit
// is called. Only the presets that are to be changed are written; the others keep their positions.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "console/presets/PresetLock.h"
#include "console/presets/StoredPresets.h"

namespace Console {

class PresetChange {
public:
    // Lock the presets and read them. Throw Error. The seed is that of the keys of new presets, by default
    // the current moment.
    PresetChange();
    explicit PresetChange(unsigned seed);
    PresetChange(const PresetChange&) = delete;
    PresetChange& operator=(const PresetChange&) = delete;

    // Undoes a change that was not committed, as far as the registry allows.
    ~PresetChange();

    // The presets as they were before the change.
    const StoredPresets& Presets() const { return presets_; }

    // Stores a new preset with these values, a new key, and a position above all others. Returns the key.
    // Throws Error if not every value was stored.
    std::wstring Add(const Preset& values);

    // Stores the values in which a preset differs from what it was before. Throws Error if not all of them
    // were stored. REQUIRES: before is one of Presets() and not damaged.
    void Write(const Preset& before, const Preset& changed);

    // Removes a preset, damaged or not. Throws Error if it is still there afterwards.
    void Remove(const StoredPreset& stored);

    // Keeps what was changed, and warns if a main window of the program is open, which has not read it.
    // Throws Cancelled after Ctrl+C.
    void Commit();

private:
    const PresetLock lock_;
    const StoredPresets presets_;
    int32_t highest_ = 0;  // position
    std::vector<std::function<void()>> undo_;
};

}  // namespace Console
