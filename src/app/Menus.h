// The menus of the main window and its tree, as far as they are not resources as they stand.
#pragma once

#include "winlib/Handles.h"
#include "winlib/Windows.h"

// The commands of the tree's context menu, one bit each. A template's command is Template plus its number.
struct ContextCommand {
    enum : UINT { New = 1, Duplicate = 2, Rename = 4, Remove = 8, Template = 0x80 };
};

// A popup with the name of each template; the commands count up from firstId.
WinLib::UniqueHandle<HMENU> MakeTemplateMenu(UINT firstId);

// The menu bar from the resource, with the template menu in its place under File. The menu bar does not own
// the template menu until it is set on a window.
WinLib::UniqueHandle<HMENU> MakeMenuBar(HINSTANCE instance, HMENU templateMenu);

// The tree's context menu; presetSelected says whether there is a preset for the item commands.
WinLib::UniqueHandle<HMENU> MakeContextMenu(bool presetSelected);
