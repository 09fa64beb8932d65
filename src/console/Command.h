// A command of the program: a row of the table in Commands.cpp.
#pragma once

#include <cstddef>
#include <span>

#include "console/ExitCode.h"
#include "console/Options.h"

namespace Console {

inline constexpr size_t AnyNumber = static_cast<size_t>(-1);

struct Command {
    const char* name;   // one word, or two separated by a blank
    const char* usage;  // the arguments after the name, in one line
    const char* help;   // the lines below the usage, each with its line feed; may be empty
    std::span<const Option> options;
    size_t leastOperands;
    size_t mostOperands;

    // Runs the command and returns the program's exit code. Throws Error.
    ExitCode (*run)(const Options& arguments);
};

}  // namespace Console
