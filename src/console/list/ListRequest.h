// What the arguments of the command "list" ask for.
#pragma once

#include <optional>
#include <string>

#include "console/Options.h"
#include "settings/Preset.h"

namespace Console {

enum class ListFormat { Text, Html, Csv, JsonLines, Report, Sha256Sum };

struct ListRequest {
    Preset preset;        // its list style is that of the format, and a report is grouped
    std::wstring folder;  // a full path in the canonical form of scanner/Path.h
    ListFormat format;

    // The full name of the list; none for the standard output.
    std::optional<std::wstring> output;

    bool absolute;  // full paths in a table
    bool hash;      // the files are read, and the list has their SHA-256
    bool excel;     // a table for Excel of this computer
    bool progress;
    bool open;
    bool quiet;
};

// Reads the presets but writes nothing. Throws Error.
ListRequest MakeListRequest(const Options& arguments);

}  // namespace Console
