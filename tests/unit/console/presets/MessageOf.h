// What a call throws.
#pragma once

#include <stdexcept>
#include <string>

// Returns the message of the runtime_error that the call throws, or "nothing was thrown".
template <typename Call>
std::string MessageOf(Call call) {
    try {
        call();
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return "nothing was thrown";
}
