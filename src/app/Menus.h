// The menus of the main window and its tree that are built at run time.
#pragma once

#include "winlib/Handles.h"
#include "winlib/Windows.h"

// Marks the command of a template in the tree's context menu; the bits below are the template's number.
constexpr UINT ContextTemplateBit = 0x80;

// A popup with the name of each template; the commands count up from firstId.
WinLib::UniqueHandle<HMENU> MakeTemplateMenu(UINT firstId);

// The menu bar from the resource, with the template menu in its place under File. The menu bar does not own
// the template menu until it is set on a window.
WinLib::UniqueHandle<HMENU> MakeMenuBar(HINSTANCE instance, HMENU templateMenu);

// The tree's context menu. presetSelected says whether a preset's own item is selected, as below.
WinLib::UniqueHandle<HMENU> MakeTreeMenu(bool presetSelected);

// Enables or grays the entries of the menu bar that need a preset.
void EnablePresetCommands(HMENU menuBar, bool presetSelected);
