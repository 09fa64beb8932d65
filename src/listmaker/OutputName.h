// Where a list goes and what its file is called. Only a name is computed: no file and no folder is made.
#pragma once

#include <string>

class Preset;

// The full name of the list file for a list of the folder at path: "List of " and the last part of the path,
// in the folder that the preset chooses, with a number from 2 upward behind it while a file of that name
// exists and the preset does not overwrite. Relative to the current directory when there is no temporary
// folder.
std::wstring OutputName(const Preset& preset, const std::wstring& path);
