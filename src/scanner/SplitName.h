// Where a file's name ends and its extension begins.
#pragma once

#include "scanner/Records.h"
#include "scanner/StringPool.h"

namespace Scanner {

// Sets name and extension from the record's fullName. A dot in front belongs to the name; otherwise the last
// dot separates, except that the character behind a separating dot is never looked at: "a..b" is "a" and
// ".b". A name without extension shares its text with fullName.
void SplitName(File& file, StringPool& strings);

}  // namespace Scanner
