// The system's dialog for choosing a folder.
#pragma once

#include <optional>
#include <string>

#include "winlib/Windows.h"

namespace WinLib {

// Lets the user choose a folder of the file system; the dialog opens at startFolder, or where the system
// likes if that is null. Nothing when the user cancels or the place chosen has no path.
std::optional<std::wstring> PickFolder(HWND owner, const wchar_t* title, const wchar_t* startFolder);

}  // namespace WinLib
