// What the resource must hold of the pages and dialogs: every control in the order of Tab.
#pragma once

#include <vector>

#include "winlib/Windows.h"

struct ControlRow {
    int id;
    const wchar_t* className;
    const wchar_t* text;
    DWORD style;  // the bits that make the control what it is
};

struct DialogRow {
    int id;
    const wchar_t* title;
    int width;  // in dialog units; 0 for the pages, which only share one size
    int height;
    std::vector<ControlRow> controls;
};

extern const std::vector<DialogRow> Dialogs;
