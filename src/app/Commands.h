// The commands of the main window, one row each. The menu bar, the accelerators, the tree's context menu and
// their handlers all read these rows. Templates have none: their commands are a bit and a number.
#pragma once

#include <array>

#include "app/ICommand.h"
#include "winlib/Handles.h"

// Opens the label of a preset's item for editing. Ignores any other item.
class ILabelEditor {
public:
    virtual void BeginRename(HTREEITEM item) = 0;

protected:
    ~ILabelEditor() = default;
};

// What a command acts on.
struct CommandTarget {
    HWND window;  // the main window
    ICommand& command;
    ILabelEditor& labels;
    HTREEITEM item;  // the item that was selected when the user gave the command, or null
};

struct CommandRow {
    WORD menuId;                 // in the menu bar
    WORD key;                    // virtual key, also the accelerator's id; 0 for none
    UINT contextId;              // in the tree's context menu: one bit; 0 for a command that is not there
    const wchar_t* contextText;  // null without contextId
    bool needsPreset;            // can be used only while a preset's own item is selected
    void (*run)(const CommandTarget& target);
};

extern const std::array<CommandRow, 7> Commands;

// Return the command of a menu entry, of an accelerator, and of the bits that the context menu returned. Null
// if there is none.
const CommandRow* FindMenuCommand(WORD menuId);
const CommandRow* FindKeyCommand(WORD key);
const CommandRow* FindContextCommand(UINT bits);

// Creates the accelerators of all commands with a key.
WinLib::UniqueHandle<HACCEL> MakeAccelerators();
