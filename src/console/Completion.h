// The completion of command lines in shells.
#pragma once

#include <span>
#include <string>

#include "console/Command.h"

namespace Console {

// Returns a PowerShell script that completes the names of the commands, their options, and the keys of
// presets.
std::string PowerShellCompletion(std::span<const Command> commands);

}  // namespace Console
