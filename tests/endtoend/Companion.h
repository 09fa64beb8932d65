// The built console companion as a person at a prompt or a script calls it: what it prints, where, and with
// which exit code.
#pragma once

#include <filesystem>
#include <string>

#include "winlib/Windows.h"

namespace EndToEnd {

struct Printed {
    DWORD code = 99;
    std::string out;  // as it was written
    std::string error;
};

// A file that takes what a program prints. A pipe would not do: under Wine the desktop's own process, started
// by the first program that needs it, inherits the pipe and keeps it open after the program has ended.
class OutputFile {
public:
    OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;
    ~OutputFile();

    HANDLE Handle() const { return handle_; }

    // Returns everything that was written.
    std::string ReadAll();

private:
    HANDLE handle_;
};

// Returns the command line that runs the companion with these arguments.
std::wstring CompanionCommand(const std::wstring& arguments);

// Runs the companion in this folder, by default that of the test.
Printed RunCompanion(const std::wstring& arguments, const std::filesystem::path& folder = {});

}  // namespace EndToEnd
