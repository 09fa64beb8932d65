// The errors that end a command. Each has a message for the user: a sentence without a full stop that names
// the object and what to do. Messages are UTF-8.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

#include "console/ExitCode.h"
#include "console/Utf8.h"

namespace Console {

class Error : public std::runtime_error {
public:
    Error(ExitCode exitCode, const std::string& message) : std::runtime_error(message), code(exitCode) {}
    Error(ExitCode exitCode, std::wstring_view message) : Error(exitCode, ToUtf8(message)) {}

    const ExitCode code;
};

// Arguments that the command does not take. The command's usage is printed after the message.
class UsageError : public Error {
public:
    explicit UsageError(std::wstring_view message) : Error(ExitCode::WrongUsage, message) {}
};

// The end of a command that was interrupted by Ctrl+C. Has no message.
class Cancelled : public Error {
public:
    Cancelled() : Error(ExitCode::Cancelled, std::string()) {}
};

}  // namespace Console
