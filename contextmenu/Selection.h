// The folders that the shell's menu was opened on.
#pragma once

#include <string>
#include <vector>

#include "winlib/Windows.h"

struct IDataObject;

// The full paths of the folders and drives in the data object, in its order. Anything else in it is left out;
// empty if there is no data object, or one without file names.
std::vector<std::wstring> SelectedFolders(IDataObject* data);
