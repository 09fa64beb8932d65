// The commands "menu ...": the presets in the context menus of folders and drives, for the current user
// without administrator rights, or for all users.
#pragma once

#include <array>

#include "console/Command.h"

namespace Console {

inline constexpr char MenuStatusHelp[] =
    "\n"
    "Prints 'on, for me', 'on, for all users', 'on, by another copy: PATH' or 'off'.\n";

inline constexpr char MenuOnHelp[] =
    "\n"
    "Adds the presets to the menus of folders and drives, for the current user.\n"
    "\n"
    "  --all-users  for all users of this computer; asks for administrator rights. The module is then "
    "loaded\n"
    "               for everyone from the folder of this program, so that folder must be safe from "
    "changes.\n";

inline constexpr char MenuOffHelp[] =
    "\n"
    "Removes the presets from the menus, for the current user.\n"
    "\n"
    "  --all-users  for all users of this computer; asks for administrator rights\n";

inline constexpr std::array<Option, 1> MenuOptions = {{{"all-users"}}};

// Throw Error.
ExitCode RunMenuStatus(const Options& arguments);
ExitCode RunMenuOn(const Options& arguments);
ExitCode RunMenuOff(const Options& arguments);

}  // namespace Console
