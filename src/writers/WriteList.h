// Writes a finished scan to a list file.
#pragma once

#include "scanner/Records.h"

class Preset;

// Writes the list of everything below root to the file at outputPath, as text or HTML by the preset's list
// style. Failures to open or write the file are ignored. Throws std::bad_alloc, and std::exception if the
// preset holds a column or style outside its enumeration.
void WriteList(const Preset& preset, const Scanner::Node& root, const wchar_t* outputPath);
