// The file in which presets travel from one machine to another:
//
//   {"format":"tamblewick-presets","version":1,"presets":[{"Key":...,"Name":...,"Position":...,"Format":{...},...}]}
//
// The presets are in the order of the window's tree. Key and Position are for readers and ignored in a file
// that is read.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "settings/Preset.h"

namespace Console {

// No file of this program comes near to these limits. They bound the memory that a hostile file takes.
inline constexpr size_t LargestPresetFile = 4 << 20;  // bytes
inline constexpr size_t MostPresets = 1000;

// Returns the file as text in UTF-8, with an indent, so that versions of it can be compared.
std::string FormatPresetFile(std::span<const Preset* const> presets);

// Returns the presets of a file, with an empty key and the position 0. Fields that are missing have the
// values of a new preset. Throws JsonError if the text is no such file.
std::vector<Preset> ParsePresetFile(std::string_view text);

}  // namespace Console
