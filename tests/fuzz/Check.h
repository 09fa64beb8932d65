// Reports a wrong result of the product and aborts the fuzz program, so that the fuzzer keeps the input.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>

namespace Fuzz {

// details, UTF-8, come with the message.
inline void Check(bool holds, const char* promise, const std::string& details = {}) {
    if (holds)
        return;
    std::fprintf(stderr, "Broken: %s\n%s\n", promise, details.c_str());
    std::abort();
}

}  // namespace Fuzz
