// The table of commands, and the way from the program's arguments to a command.
#pragma once

#include <span>

#include "console/Command.h"

namespace Console {

std::span<const Command> Commands();

// Runs the program with its arguments, without the program's name. Errors are printed to the standard error.
ExitCode RunProgram(const Arguments& arguments);

}  // namespace Console
