// How sizes are written, in all cells and totals of a list: in units of powers of 1024, with plain digits.
#pragma once

#include <cstdint>

#include "settings/Enumerations.h"

class Writer;

// Inserts a size in bytes into the writer's stream, whose number format gives the one decimal.
using SizeWriter = void (*)(Writer& writer, const uint64_t& size);

// The function for a style. The two dynamic styles choose the unit by the size and write nothing for a
// pebibyte or more. Throws std::exception on a style outside its enumeration.
SizeWriter MakeSizeWriter(SizeStyle style);
