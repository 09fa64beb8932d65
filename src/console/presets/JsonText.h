// Reads JSON text from a file or the command line, which may be hostile.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <stdexcept>
#include <string>
#include <string_view>

namespace Console {

// A text that is no JSON, or a value that does not fit. The message is part of a sentence, in UTF-8, and
// begins with the place of the error: a line and column or the path of a value, as in
// "presets[0].Columns.FolderColumns[3]: expected a text".
class JsonError : public std::runtime_error {
public:
    // The place may be empty.
    JsonError(const std::string& place, const std::string& message)
        : std::runtime_error(place.empty() ? message : place + ": " + message) {}
};

// Return the path of a field or an element of the value at this path. Of a long name only the beginning is
// used.
std::string PathOf(const std::string& path, std::string_view name);
std::string PathOf(const std::string& path, size_t index);

// Parses one JSON value. Throws JsonError if the text is no JSON in UTF-8, if a number does not fit 64 bits,
// if an object has a field twice, or if arrays and objects are nested more than eight deep; the files of this
// program need five. Takes time and memory in proportion to the text.
nlohmann::json ParseJson(std::string_view text);

}  // namespace Console
