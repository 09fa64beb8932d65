// Splits a file's name into stem and extension.
#pragma once

#include "scanner/Records.h"
#include "scanner/StringPool.h"

namespace Scanner {

// Sets name and extension from the record's fullName. A leading dot is part of the name; otherwise the last
// dot separates, except that the character after a separating dot is never examined: "a..b" is "a" and ".b".
// A name without extension shares its text with fullName.
void SplitName(File& file, StringPool& strings);

}  // namespace Scanner
