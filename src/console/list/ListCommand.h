// The command "list": makes a list of a folder with the options of a preset.
#pragma once

#include <array>

#include "console/Command.h"

namespace Console {

inline constexpr char ListUsage[] = "PRESET|--template NUMBER|NAME|--preset-file FILE FOLDER [options]";

inline constexpr char ListHelp[] =
    "\n"
    "Writes a list of the folders and files below FOLDER and prints the full name of the list. PRESET is the "
    "key\n"
    "of a preset, or its name if only one preset has it.\n"
    "\n"
    "  --template NUMBER|NAME  use a template, see 'presets templates'\n"
    "  --preset-file FILE      use a preset of a file of 'presets export'; - is the standard input. No "
    "program\n"
    "                          that the file names is started\n"
    "  --preset NAME           the name of the preset in that file, if it has several\n"
    "  -f, --format FORMAT     preset (text or HTML, as the preset says), text, html, csv, jsonl,\n"
    "                          report (a page to search, sort and look at), sha256sum (the hashes of all\n"
    "                          files, for 'sha256sum -c')\n"
    "  -o, --output FILE       the list; - is the standard output. Default: where the preset saves; csv,\n"
    "                          jsonl and sha256sum: the standard output\n"
    "  --hash sha256           csv, jsonl: read all files and add their hashes\n"
    "  --absolute              csv, jsonl: full paths; default: relative to FOLDER\n"
    "  --excel                 csv: as Excel of this computer reads it\n"
    "  --progress WHEN         auto (if the standard error is a console), always, never\n"
    "  --open                  open the list as the preset says\n"
    "  -q, --quiet             no progress, no name of the list, no warnings\n"
    "\n"
    "Exit codes: 0 complete, 1 FOLDER cannot be listed, 2 wrong usage or no such preset, 3 the list was "
    "written\n"
    "but folders, or files to be hashed, could not be read, 4 the list could not be written,\n"
    "130 ended by Ctrl+C, nothing written.\n";

inline constexpr std::array<Option, 11> ListOptions = {{
    {"template", 0, true},
    {"preset-file", 0, true},
    {"preset", 0, true},
    {"format", 'f', true},
    {"output", 'o', true},
    {"hash", 0, true},
    {"absolute"},
    {"excel"},
    {"progress", 0, true},
    {"open"},
    {"quiet", 'q'},
}};

// Throws Error.
ExitCode RunList(const Options& arguments);

}  // namespace Console
