// The presets that a command names: stored ones and templates.
#pragma once

#include <string>

#include "settings/Preset.h"

namespace Console {

// Returns the preset with this key, or with this name if only one has it. Throws Error.
Preset StoredPreset(const std::wstring& keyOrName);

// Returns a preset with the values of a template, by its number or its name. Throws Error.
Preset PresetOfTemplate(const std::wstring& numberOrName);

}  // namespace Console
