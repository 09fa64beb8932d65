// The rows that a list must hold, in no order, and the rows that it does hold.
#pragma once

#include <string>
#include <vector>

#include "fuzz/list/ExpectedScan.h"

namespace Fuzz {

// The rows of the file, sorted: one for every record whose kind has a column. Numbers of rows,
// which depend on the order, are all "#.". Rows without any text are left out, since a text list has empty
// lines of its own. All names must be UTF-16.
std::vector<std::string> ExpectedRows(const ExpectedScan& scan, const Preset& preset);

// How many rows that makes, whatever the names; those without text count too.
size_t ExpectedRowCount(const ExpectedScan& scan, const Preset& preset);

// The rows among the lines of a list, in the same form.
std::vector<std::string> RowsOf(const std::vector<std::string>& lines, bool html);

}  // namespace Fuzz
