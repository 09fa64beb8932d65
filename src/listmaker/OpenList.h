// Opens finished lists.
#pragma once

#include <string>

class Preset;

// Opens the list at outputPath by the preset's OpenMethod. Does not wait for the program; failures are
// ignored.
void OpenList(const Preset& preset, const std::wstring& outputPath);
