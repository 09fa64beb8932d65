// Cleaning and joining of Windows paths as text. Nothing here asks the file system, and forward slashes are
// ordinary characters.
#pragma once

#include <string>
#include <string_view>

namespace Scanner {

// The text without leading and trailing backslashes and with each inner run of backslashes as one. A text of
// one character stays as it is, and one of backslashes only gives a single backslash.
std::wstring NormalizePath(std::wstring_view text);

// Both parts normalised and joined by one backslash; the two backslashes of a network path survive in front.
// JoinPath(path, L"") is the canonical form of a path, in which a drive root is "C:".
std::wstring JoinPath(std::wstring_view first, std::wstring_view second);

}  // namespace Scanner
