// The commands "presets ...".
#pragma once

#include <array>

#include "console/Command.h"

namespace Console {

inline constexpr std::array<Option, 1> PresetsListOptions = {{{"json"}}};
inline constexpr std::array<Option, 1> ExportOptions = {{{"output", 'o', true}}};
inline constexpr std::array<Option, 2> ImportOptions = {{{"replace"}, {"trust"}}};

inline constexpr char PresetsListHelp[] =
    "\n"
    "Prints key, position and name of each preset, separated by tabs, in the order of the window. Tabs and\n"
    "line feeds in names become blanks.\n"
    "\n"
    "  --json  a JSON object in each line: {\"key\":...,\"position\":...,\"name\":...}, with "
    "\"damaged\":true\n"
    "          for a preset that could not be read in full\n";

inline constexpr char TemplatesHelp[] =
    "\n"
    "Prints the number and the name of each template, separated by a tab.\n";

inline constexpr char NewHelp[] =
    "\n"
    "Stores a preset with the values of a template, by its number or its name, and prints the new key.\n";

inline constexpr char DuplicateHelp[] =
    "\n"
    "Stores a copy of a preset and prints the new key. Without NAME it is named \"Copy of\" and the "
    "preset's\n"
    "name.\n";

inline constexpr char RenameHelp[] =
    "\n"
    "Gives a preset another name. Its key and its place stay.\n";

inline constexpr char RemoveHelp[] =
    "\n"
    "Removes presets: all of them, or none if one cannot be removed.\n";

inline constexpr char GetHelp[] =
    "\n"
    "Prints the value of a field, or all fields as lines FIELD=VALUE that 'presets set' takes; tabs and "
    "line\n"
    "feeds in texts then become blanks. Arrays and lists are JSON. An element of them is a field too, as in\n"
    "Columns.FolderEnabled[0].\n";

inline constexpr char SetHelp[] =
    "\n"
    "Changes fields of a preset: all of them, or none if one value does not fit. Texts and words are given "
    "as\n"
    "they are, all other values as JSON, for example:\n"
    "\n"
    "  Saving.SaveLocation=Custom Saving.CustomFolderPath=D:\\Lists Opening.OpenMethod=Nothing\n"
    "  Display.SearchSubfolders=true Display.IndentSize=2 Columns.FileEnabled[0]=true\n"
    "  Filter.ExcludedFolders=[\"*\\\\.git\"]\n"
    "\n"
    "'presets get PRESET' prints all fields.\n";

inline constexpr char ExportHelp[] =
    "\n"
    "Prints presets, by default all, as a file that 'presets import' reads. A preset that is damaged is "
    "left\n"
    "out, and the exit code is then 3.\n"
    "\n"
    "  -o, --output FILE  writes them to a file; - is the standard output\n";

inline constexpr char ImportHelp[] =
    "\n"
    "Stores the presets of a file, or of the standard input with -, and prints the key of each. If one of\n"
    "them does not fit, none is stored.\n"
    "\n"
    "  --replace  a preset takes the place of the only one with the same name, if there is one\n"
    "  --trust    keeps programs that the file names to open lists with; else OpenMethod becomes Nothing\n";

// All throw Error.
ExitCode ListPresets(const Options& arguments);
ExitCode ListTemplates(const Options& arguments);
ExitCode NewPreset(const Options& arguments);
ExitCode DuplicatePreset(const Options& arguments);
ExitCode RenamePreset(const Options& arguments);
ExitCode RemovePresets(const Options& arguments);
ExitCode GetFields(const Options& arguments);
ExitCode SetPresetFields(const Options& arguments);
ExitCode ExportPresets(const Options& arguments);
ExitCode ImportPresets(const Options& arguments);

}  // namespace Console
