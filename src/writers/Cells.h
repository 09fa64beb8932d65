// The functions that write the cells of a list, as a preset selects them (MakeCells in Columns.h).
#pragma once

#include <cstdint>
#include <vector>

#include "scanner/Records.h"

class Writer;
struct PathState;

// Writes one cell to the writer's stream.
using ColumnWriter = void (*)(Writer& writer, const PathState& state, const Scanner::Record& record);

// Writes a size in bytes to the writer's stream, whose number format has one decimal.
using SizeWriter = void (*)(Writer& writer, const uint64_t& size);

struct Cells {
    SizeWriter sizeWriter;
    std::vector<ColumnWriter> folderColumns;  // in display order
    std::vector<ColumnWriter> fileColumns;
};
