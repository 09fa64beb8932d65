// Conversions between UTF-16, in which Windows has its texts, and UTF-8, in which the program reads and
// writes them. They never fail: what is not valid becomes U+FFFD.
#pragma once

#include <string>
#include <string_view>

namespace Console {

// Half a surrogate pair, which the name of a file may hold, is not valid.
std::string ToUtf8(std::wstring_view text);

std::wstring FromUtf8(std::string_view text);

}  // namespace Console
