// Starting another program, and what is done with a finished list. Nothing here waits for what it starts, and
// a failure shows nothing on the screen.
#pragma once

#include <string>

class Preset;

// The text between double quotes. Quotes inside stay as they are.
std::wstring QuotePath(const std::wstring& text);

// Starts a program, or opens a file with whatever is registered for it. Empty arguments and an empty
// directory count as none given. Returns whether the system accepted it.
bool Launch(const std::wstring& program, const std::wstring& arguments, const std::wstring& directory);

// Opens the list at outputPath as the preset's OpenMethod says; a failure is passed over in silence.
void OpenList(const Preset& preset, const std::wstring& outputPath);
