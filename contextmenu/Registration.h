// The keys by which the shell finds the module: one for folders, one for drives, and the class itself.
#pragma once

#include "winlib/Windows.h"

namespace Registration {

// Write the keys below classes, which is HKEY_CLASSES_ROOT or the user's own classes, and notify the shell.
// Returns the first failure, after which none of the keys remains.
HRESULT Register(HKEY classes);

// Delete the keys; what is missing already is no failure.
HRESULT Unregister(HKEY classes);

}  // namespace Registration
