// Lists in the formats that presets do not have, as bytes.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

#include "console/list/CsvWriter.h"
#include "console/list/JsonLinesWriter.h"
#include "console/list/ReportWriter.h"
#include "support/lists/ListSupport.h"

namespace RowSupport {

// The bytes of the list of a tree in the grouped or the flat style.
std::string CsvOf(const ScanTree& tree, const Console::CsvOptions& options = {}, bool flat = false);
std::string JsonOf(const ScanTree& tree, const Console::JsonLinesOptions& options, bool flat = false);

std::string ReportOf(const ScanTree& tree, const Console::ReportOptions& options = {});

// The list of a preset named "Names", made at the zero time, with relative paths.
Console::JsonLinesOptions PlainJson();

// The lines without the first and, of JSON Lines, the last, each with its end.
std::string RowsOf(const std::string& csv);
std::string ObjectsOf(const std::string& json);

// The value of a field in the only row, as it is written.
std::string OnlyCell(const std::string& csv, size_t field);
std::string OnlyMember(const std::string& json, std::string_view name);

// A time of the file system, in units of 100 ns since 1601.
FILETIME Ticks(uint64_t ticks);

std::wstring Units(std::initializer_list<int> units);

}  // namespace RowSupport
