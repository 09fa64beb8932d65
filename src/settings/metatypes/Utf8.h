// Checked conversions between UTF-8 and UTF-16 for the texts of field tables and the registry.
#pragma once

#include <utf8.h>

#include <iterator>
#include <string>
#include <string_view>

namespace MetaTypes {

// Throws utf8::invalid_utf8.
inline std::wstring Widen(std::string_view text) {
    std::wstring wide;
    utf8::utf8to16(text.begin(), text.end(), std::back_inserter(wide));
    return wide;
}

// Throws utf8::invalid_utf16.
inline std::string Narrow(std::wstring_view text) {
    std::string narrow;
    utf8::utf16to8(text.begin(), text.end(), std::back_inserter(narrow));
    return narrow;
}

}  // namespace MetaTypes
