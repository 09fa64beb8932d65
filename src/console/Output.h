// The standard output and the standard error of the program. All text is UTF-8, whether it goes to a console,
// a file or a pipe.
#pragma once

#include <cstdio>
#include <string_view>

namespace Console {

// While it exists, consoles take UTF-8.
class Utf8Console {
public:
    Utf8Console();
    Utf8Console(const Utf8Console&) = delete;
    Utf8Console& operator=(const Utf8Console&) = delete;
    ~Utf8Console();

private:
    const unsigned int codePage_;
};

// Writes UTF-8 to the standard output. Throws Error if not all of it could be written.
void Print(std::string_view text);

// Writes UTF-8 to the standard error. Failures are ignored.
void PrintError(std::string_view text);

// Writes a line "tamblewickc: MESSAGE" to the standard error.
void Warn(std::string_view message);

// Opens the standard output as a stream that the caller closes, after which Print fails. In text mode line
// feeds become CR LF. Returns null if there is no standard output.
std::FILE* OpenStandardOutput(bool text);

// Returns whether the standard output is a console.
bool OutputIsConsole();

// Returns whether the standard error is a console.
bool ErrorIsConsole();

// Returns the characters of a line of the console at standard error; 80 if it is no console.
size_t ErrorConsoleWidth();

}  // namespace Console
