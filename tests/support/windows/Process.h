// Programs that tests start.
#pragma once

#include <filesystem>
#include <string>

#include "winlib/Windows.h"

namespace TestSupport {

struct ProcessOptions {
    std::filesystem::path folder = {};  // the current folder; empty for that of the test
    HANDLE output = nullptr;  // inheritable handles of the standard output and error output; null for
    HANDLE error = nullptr;   // those of the test
    HANDLE input = nullptr;   // the same for the standard input
};

// A started program. If it cannot be started the test fails, and its exit code is 99.
class Process {
public:
    explicit Process(const std::wstring& commandLine, const ProcessOptions& options = {});
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    // Waits for the end.
    ~Process();

    // Waits for the end and returns the exit code. A program that does not end within a minute is ended and
    // fails the test.
    DWORD Wait();

    bool IsRunning() const { return !EndsWithin(0); }
    bool EndsWithin(DWORD milliseconds) const;

    DWORD Id() const { return information_.dwProcessId; }

private:
    PROCESS_INFORMATION information_ = {};
};

// Runs a program to its end and returns the exit code.
DWORD RunProcess(const std::wstring& commandLine, const ProcessOptions& options = {});

}  // namespace TestSupport
