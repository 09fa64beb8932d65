// The columns of a list: their titles and the functions that write their cells. The columns of a preset are
// selected once for a list, so that writing a row is a loop over functions. Cells are the same in every
// format.
#pragma once

#include <vector>

#include "writers/Cells.h"

class Preset;

// Returns the functions for the preset's style of sizes and for its enabled columns. Throws std::exception on
// a column or style outside its enumeration.
Cells MakeCells(const Preset& preset);

// Return the titles of the enabled columns in display order: static strings. Throw as MakeCells.
std::vector<const wchar_t*> FolderTitles(const Preset& preset);
std::vector<const wchar_t*> FileTitles(const Preset& preset);
