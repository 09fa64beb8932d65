// Starts programs and opens finished lists. Does not wait for what it starts; failures are not shown.
#pragma once

#include <string>

class Preset;

// Returns the text in double quotes. Quotes inside are not escaped.
std::wstring QuotePath(const std::wstring& text);

// Starts a program, or opens a file with the program registered for it. Empty arguments and an empty
// directory are passed as null. Returns whether ShellExecuteExW succeeded.
bool Launch(const std::wstring& program, const std::wstring& arguments, const std::wstring& directory);

// Opens the list at outputPath by the preset's OpenMethod. Failures are ignored.
void OpenList(const Preset& preset, const std::wstring& outputPath);
