// Texts in output with one line for each record.
#pragma once

#include <algorithm>
#include <string>

namespace Console {

// Returns the text with blanks for tabs and line breaks.
inline std::string OneLine(std::string text) {
    std::ranges::replace_if(
        text, [](char byte) { return byte == '\t' || byte == '\n' || byte == '\r'; }, ' ');
    return text;
}

}  // namespace Console
