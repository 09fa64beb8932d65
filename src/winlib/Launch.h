// Starts programs and opens files and links. Does not wait for what it starts, and shows no failure.
#pragma once

#include <string>

namespace WinLib {

// Returns the text in double quotes. Quotes inside are not escaped.
std::wstring QuotePath(const std::wstring& text);

// Starts a program, or opens a file or link with the program registered for it. Empty arguments and an empty
// directory are passed as null. Returns whether ShellExecuteExW succeeded.
bool Launch(const std::wstring& program, const std::wstring& arguments, const std::wstring& directory);

}  // namespace WinLib
