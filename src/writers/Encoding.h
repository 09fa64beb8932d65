// Encodes the text of list files: always as UTF-8.
#pragma once

#include <string>
#include <string_view>

// Returns UTF-16 text as UTF-8. Never fails, since file names may hold any units: a lead surrogate is
// combined with the next unit, whatever that is, and with 0 at the end of the text; a lone trail surrogate
// becomes three bytes. The result is in `memory`, which grows as needed, and is valid until its next use.
std::string_view EncodeText(std::wstring_view text, std::string& memory);
