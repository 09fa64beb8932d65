// Paths as a user gives them at a prompt.
#pragma once

#include <string>

namespace Console {

// Returns the full path of a text that may be relative to the current folder or to that of a drive, without
// "." and ".." and without the prefix \\?\. Throws Error, with the exit code of wrong usage, if the text is
// no path.
std::wstring FullPath(const std::wstring& text);

// Returns a full path in the form \\?\..., which may be longer than MAX_PATH.
std::wstring LongPath(const std::wstring& fullPath);

}  // namespace Console
