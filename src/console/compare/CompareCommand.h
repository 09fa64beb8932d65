// The command "compare": what has changed from one list to another.
#pragma once

#include <array>

#include "console/Command.h"

namespace Console {

inline constexpr char CompareUsage[] = "OLD NEW [--json] [--fat] [--exit-code]";

inline constexpr char CompareHelp[] =
    "\n"
    "Compares two lists in JSON Lines and prints a line for each entry that differs, in the order of the "
    "paths:\n"
    "\n"
    "  + PATH  is only in the new list\n"
    "  - PATH  is only in the old list\n"
    "  ~ PATH  size OLD -> NEW  modified OLD -> NEW\n"
    "\n"
    "Entries are the same if type, size and modified time are, or the hashes if both lists have them.\n"
    "\n"
    "  --json       a JSON object in each line\n"
    "  --fat        modified times may differ by two seconds, as those of FAT file systems do\n"
    "  --exit-code  exit code 1 if the lists differ\n"
    "\n"
    "Exit codes: 0 compared, 1 a list cannot be read, 2 wrong usage, 3 a list is not complete.\n";

inline constexpr std::array<Option, 3> CompareOptions = {{{"json"}, {"fat"}, {"exit-code"}}};

// Throws Error.
ExitCode CompareLists(const Options& arguments);

}  // namespace Console
