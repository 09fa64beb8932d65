// Where a program looks for DLLs.
#pragma once

namespace WinLib {

// Limits the search for DLLs that are loaded by name to the system folder, so that a file beside the program,
// for example in a folder of downloads, cannot replace a system DLL. Must be the first call of a program,
// whose imports except kernel32 and msvcrt are loaded later (cmake/DelayLoad.cmake). Does nothing on a
// Windows 7 without the update that adds SetDefaultDllDirectories.
void LimitDllSearch();

}  // namespace WinLib
