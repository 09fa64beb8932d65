// How text becomes bytes in a list file: UTF-8, whatever the preset says.
#pragma once

#include <string>
#include <string_view>

// The text, UTF-16 units, as UTF-8. Never fails, since names in a file system may hold anything: a lead
// surrogate is combined with the unit behind it, whatever that is, and with 0 at the end of the text; a trail
// surrogate on its own becomes three bytes. The bytes stand in memory, which only grows, so that a caller who
// keeps it pays for it once; they are good until its next use.
std::string_view EncodeText(std::wstring_view text, std::string& memory);
