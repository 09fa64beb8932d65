// Formats the sizes in the cells and totals of a list: in units of powers of 1024, with plain digits.
#pragma once

#include "settings/Enumerations.h"
#include "writers/Cells.h"

// Returns the function for a style. The two dynamic styles choose the unit by the size and write nothing for
// a pebibyte or more. Throws std::exception on a value outside the enumeration.
SizeWriter MakeSizeWriter(SizeStyle style);
