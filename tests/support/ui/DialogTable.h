// What the resource must hold of every dialog and page: each control with the whole of its style, from the
// top down, which is the order of Tab.
#pragma once

#include <vector>

#include "winlib/Windows.h"

// In dialog units.
struct Place {
    int x, y, cx, cy;
};

struct ControlRow {
    int id;
    const wchar_t* className;
    const wchar_t* text;  // "#116" for the number of an icon
    DWORD style;
    Place place = {};  // all 0 where the program alone decides on it
};

struct DialogRow {
    int id;
    const wchar_t* caption;
    int width;  // in dialog units
    int height;
    DWORD style;
    DWORD exStyle;
    std::vector<ControlRow> controls;
};

extern const std::vector<DialogRow> Dialogs;
