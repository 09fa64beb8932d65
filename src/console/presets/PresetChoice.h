// The presets that a command names: stored ones, templates, and those of a file.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "settings/Preset.h"

namespace Console {

// Returns the preset with this key, or with this name if only one has it. Throws Error.
Preset PresetByName(const std::wstring& keyOrName);

// Returns a preset with the values of a template, by its number or its name. Throws Error.
Preset PresetOfTemplate(const std::wstring& numberOrName);

// Returns the presets of a file, or of the standard input if the name is "-". Throws Error.
std::vector<Preset> PresetsOfFile(const std::wstring& file);

// Returns the only preset of a file, or the only one with this name. It starts no program that the file
// names: its OpenMethod is then Nothing. Throws Error.
Preset PresetOfFile(const std::wstring& file, const std::optional<std::wstring>& name);

}  // namespace Console
