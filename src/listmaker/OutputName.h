// Chooses the name of a list file. Creates neither files nor folders.
#pragma once

#include <string>

class Preset;

// Returns the full name of the file for a list of the folder at path: "List of " and the last part of the
// path, in the folder that the preset chooses. If the file exists and the preset does not overwrite, a number
// from 2 is added. Relative to the current directory if there is no temporary folder.
std::wstring OutputName(const Preset& preset, const std::wstring& path);
