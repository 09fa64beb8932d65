// Wide text in tests: literals from UTF-8, and text that a failure message can show.
#pragma once

#include <string>
#include <string_view>

namespace TestSupport {

// Both ways between UTF-8 and UTF-16 units, one to a wchar_t. Utf8 shows a lone surrogate as \uD800.
std::string Utf8(std::wstring_view text);
std::wstring Wide(std::string_view utf8);

}  // namespace TestSupport
