// How the pages and dialogs use a sizer tree on their client area.
#pragma once

#include "winlib/Windows.h"
#include "winlib/layout/ClientArea.h"

using WinLib::Layout::ArrangeOnClient;

// Takes the controls as the resource drew them for the minimum, and arranges. Called once, when the layout
// tree is complete.
void MeasureAndArrange(WinLib::Layout::Sizer& root, HWND dialog);

// What a dialog does on WM_SIZE: arranges unless it has been minimized. Returns whether it did.
bool ArrangeOnSize(WinLib::Layout::Sizer& root, HWND dialog, WORD type);
