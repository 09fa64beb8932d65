// The columns of a list: their titles and the functions that write their cells. The columns of a preset are
// selected once for a list, so that writing a row is a loop over functions. Cells are the same in every
// format.
#pragma once

#include <vector>

#include "writers/Cells.h"

class Preset;

// Return the enabled columns of the preset, in display order. Throw std::exception on a value outside the
// enumeration.
std::vector<ColumnWriter> MakeFolderColumns(const Preset& preset);
std::vector<ColumnWriter> MakeFileColumns(const Preset& preset);

// Returns all that the preset selects for cells. Throws std::exception on a column or style outside its
// enumeration.
Cells MakeCells(const Preset& preset);

// Return the titles of the same columns in the same order: static strings.
std::vector<const wchar_t*> FolderTitles(const Preset& preset);
std::vector<const wchar_t*> FileTitles(const Preset& preset);
