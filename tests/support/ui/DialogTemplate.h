// A dialog as its resource script drew it: every number in dialog units, before any window exists.
#pragma once

#include <string>
#include <vector>

#include "winlib/Windows.h"

namespace Ui {

struct TemplateItem {
    int id;
    std::wstring className;  // in capitals, since case has no meaning in it
    std::wstring text;       // "#116" for the number of an icon
    int x, y, cx, cy;
    DWORD style;
    DWORD exStyle;
    DWORD help;
    WORD dataSize;  // of the bytes that its window is created with
};

struct DialogTemplate {
    std::wstring menu;
    std::wstring className;
    std::wstring caption;
    int cx, cy;
    DWORD style;
    DWORD exStyle;
    DWORD help;
    int pointSize;
    int weight;
    bool italic;
    int charset;
    std::wstring typeface;
    std::vector<TemplateItem> items;  // in the order of the script
};

// Reads a template of the extended form from a module, the running program if it is null. Throws
// std::runtime_error if there is none.
DialogTemplate ReadDialogTemplate(int templateId, HMODULE module = nullptr);

}  // namespace Ui
