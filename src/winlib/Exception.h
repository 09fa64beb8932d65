// What the program throws when it cannot go on. Only AppMain catches it, shows the message and ends.
#pragma once

#include <string>
#include <utility>

namespace WinLib {

// A failure with a text of our own. Not related to std::exception.
class Exception {
public:
    explicit Exception(std::wstring text) : Message(std::move(text)) {}

    std::wstring Message;
};

}  // namespace WinLib
