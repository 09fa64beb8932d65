// The files and the standard input that the program reads.
#pragma once

#include <cstddef>
#include <string>

namespace Console {

// Returns what names a file or, by "-", the standard input in a message.
std::wstring InputName(const std::wstring& name);

// Returns the bytes of a file, or of the standard input if the name is "-". Throws Error if it cannot be read
// or has more than this many bytes; the rest is then not read.
// Throws Cancelled after Ctrl+C.
std::string ReadInput(const std::wstring& name, size_t most);

}  // namespace Console
