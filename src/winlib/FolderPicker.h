// The system's dialog to choose a folder.
#pragma once

#include <optional>
#include <string>

#include "winlib/Windows.h"

namespace WinLib {

// Runs the dialog, which opens at startFolder, or at its default if that is null. Returns the chosen path;
// nothing if the user cancels or the chosen place has no path in the file system.
std::optional<std::wstring> PickFolder(HWND owner, const wchar_t* title, const wchar_t* startFolder);

}  // namespace WinLib
