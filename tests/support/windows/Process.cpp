#include "support/windows/Process.h"

#include <gtest/gtest.h>

namespace TestSupport {

namespace {

constexpr DWORD NotStarted = 99;
constexpr int Attempts = 3;

// Under load Wine seldom fails to start a program: the new process ends before it has loaded anything.
bool Start(std::wstring commandLine, bool inherits, const wchar_t* folder, STARTUPINFOW& startup,
           PROCESS_INFORMATION& information) {
    for (int attempt = 1; attempt <= Attempts; ++attempt) {
        if (CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, inherits, 0, nullptr, folder,
                           &startup, &information))
            return true;
        if (GetLastError() != ERROR_INTERNAL_ERROR)
            return false;
    }
    return false;
}

}  // namespace

Process::Process(const std::wstring& commandLine, const ProcessOptions& options) {
    STARTUPINFOW startup = {};
    startup.cb = sizeof(startup);
    const bool redirects = options.output != nullptr || options.error != nullptr || options.input != nullptr;
    if (redirects) {
        startup.dwFlags = STARTF_USESTDHANDLES;
        startup.hStdOutput = options.output;
        startup.hStdError = options.error;
        startup.hStdInput = options.input;
    }
    const wchar_t* const folder = options.folder.empty() ? nullptr : options.folder.c_str();
    if (!Start(commandLine, redirects, folder, startup, information_))
        ADD_FAILURE() << testing::PrintToString(commandLine) << " could not be started, error "
                      << GetLastError();
}

Process::~Process() {
    if (information_.hProcess == nullptr)
        return;
    Wait();
    CloseHandle(information_.hThread);
    CloseHandle(information_.hProcess);
}

DWORD Process::Wait() {
    if (information_.hProcess == nullptr)
        return NotStarted;
    if (!EndsWithin(60'000)) {
        ADD_FAILURE() << "the program did not end within a minute";
        TerminateProcess(information_.hProcess, 99);
        WaitForSingleObject(information_.hProcess, INFINITE);
    }
    DWORD code = 0;
    GetExitCodeProcess(information_.hProcess, &code);
    return code;
}

bool Process::EndsWithin(DWORD milliseconds) const {
    return WaitForSingleObject(information_.hProcess, milliseconds) != WAIT_TIMEOUT;
}

DWORD RunProcess(const std::wstring& commandLine, const ProcessOptions& options) {
    return Process(commandLine, options).Wait();
}

}  // namespace TestSupport
