// Formats the sizes in the cells and totals of a list: in units of powers of 1024, with plain digits.
#pragma once

#include <cstdint>

#include "settings/Enumerations.h"

class Writer;

// Writes a size in bytes to the writer's stream, whose number format has one decimal.
using SizeWriter = void (*)(Writer& writer, const uint64_t& size);

// Returns the function for a style. The two dynamic styles choose the unit by the size and write nothing for
// a pebibyte or more. Throws std::exception on a value outside the enumeration.
SizeWriter MakeSizeWriter(SizeStyle style);
