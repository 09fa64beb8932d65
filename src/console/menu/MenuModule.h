// Calls the handler module to register itself.
#pragma once

#include <string>

namespace Console {

// Loads the module at path and lets it register for the current user, or undo that. Throws Error if there is
// no such module or if it fails.
void InstallModuleForUser(const std::wstring& path, bool install);

}  // namespace Console
