// Times of the file system as text for programs: ISO 8601 in UTC with seven decimals, which are the 100 ns of
// the file system: 2026-11-21T14:05:20.0213522Z.
#pragma once

#include <array>
#include <string_view>

#include "winlib/Windows.h"

namespace Console {

// The memory of one formatted time.
using UtcText = std::array<char, 28>;

// Returns a view of `memory`, or an empty view if the file system has not set the time (zero), or if it is
// after the year 9999, which the format cannot express.
std::string_view FormatUtc(const FILETIME& time, UtcText& memory);

// Stores the time of a text that FormatUtc has written; zero if it is empty. Returns false for any other
// text.
bool ParseUtc(std::string_view text, FILETIME& time);

}  // namespace Console
