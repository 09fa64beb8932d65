// The dialog of the tests of this folder, from a resource under Wine and declared to the stand-in on Linux.
#pragma once

#include "winlib/Windows.h"

namespace ContractDialog {

inline constexpr int TemplateId = 910;
inline constexpr int ButtonId = 100;
inline constexpr int TextId = 101;

// Makes the template known where it is no resource.
void Define();

// A top-level window of this thread that takes messages.
HWND MakeOwner();

}  // namespace ContractDialog
