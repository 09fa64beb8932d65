#include "contextmenu/ProgramStart.h"

#include "contextmenu/Module.h"

ProgramStart::ProgramStart() : ProgramStart(std::wstring()) {}

// No key or path holds a quote, and to the program a backslash before the closing quote, as in the path of a
// drive, is an ordinary character.
ProgramStart::ProgramStart(const std::wstring& key, const std::wstring& folder)
    : ProgramStart(L" \"" + key + L"\" \"" + folder + L'"') {}

ProgramStart::ProgramStart(const std::wstring& arguments)
    : program_(Module::ProgramPath()), commandLine_(L'"' + program_ + L'"' + arguments) {}

UniqueProcess ProgramStart::Run() noexcept {
    STARTUPINFOW startup = {};
    startup.cb = sizeof(startup);
    PROCESS_INFORMATION process = {};
    if (!CreateProcessW(program_.c_str(), commandLine_.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                        &startup, &process))
        return nullptr;
    CloseHandle(process.hThread);
    return UniqueProcess(process.hProcess);
}
