// Normalises and joins Windows paths as text, without access to the file system. Forward slashes are ordinary
// characters.
#pragma once

#include <string>
#include <string_view>

namespace Scanner {

// Returns the text without leading and trailing backslashes and with each inner run of backslashes reduced to
// one. A text of one character is returned unchanged; several backslashes alone become one.
std::wstring NormalizePath(std::wstring_view text);

// Returns both parts normalised and joined by one backslash; the two leading backslashes of a network path
// are kept. JoinPath(path, L"") is the canonical form of a path, in which a drive root is "C:".
std::wstring JoinPath(std::wstring_view first, std::wstring_view second);

// Returns a canonical path with the prefix \\?\, with which the system accepts paths longer than MAX_PATH.
// With networkPaths a path \\server\share is given the prefix for network paths; it cannot be opened
// otherwise.
std::wstring VerbatimPath(std::wstring_view path, bool networkPaths);

}  // namespace Scanner
