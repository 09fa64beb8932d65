// The columns of a list: their titles and the functions that write one cell each. A preset's choice is
// settled once for a list, so that a row is a run through an array of functions. Cells are the same in every
// format.
#pragma once

#include <vector>

#include "scanner/Records.h"

class Preset;
class Writer;
struct PathState;

// Inserts one cell into the writer's stream.
using ColumnWriter = void (*)(Writer& writer, const PathState& state, const Scanner::Record& record);

// The enabled columns of the preset, in display order. Throw std::exception on a column outside its
// enumeration.
std::vector<ColumnWriter> MakeFolderColumns(const Preset& preset);
std::vector<ColumnWriter> MakeFileColumns(const Preset& preset);

// The titles of the same columns in the same order: constants that nobody frees.
std::vector<const wchar_t*> FolderTitles(const Preset& preset);
std::vector<const wchar_t*> FileTitles(const Preset& preset);
