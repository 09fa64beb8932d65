// Thrown when the program cannot go on. AppMain catches it, shows the message and ends the program.
#pragma once

#include <string>
#include <utility>

namespace WinLib {

// A failure with a message. Not derived from std::exception.
class Exception {
public:
    explicit Exception(std::wstring text) : Message(std::move(text)) {}

    std::wstring Message;
};

}  // namespace WinLib
