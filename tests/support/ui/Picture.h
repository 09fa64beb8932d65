// What something looks like, as pixels, so that pictures can be compared.
#pragma once

#include <cstdint>
#include <vector>

#include "winlib/Windows.h"

#include <commctrl.h>

namespace Ui {

struct Picture {
    bool operator==(const Picture&) const = default;

    // How many pixels have this colour.
    long long Count(COLORREF colour) const;

    // Whether the other is the same but for what two ways of blending round differently.
    bool Resembles(const Picture& other) const;

    int width = 0;
    int height = 0;
    std::vector<COLORREF> pixels;  // row by row from the top
};

// An icon, a square of this size, and a picture of an image list, on a ground of this colour.
Picture OfIcon(HICON icon, int size, COLORREF ground);
Picture OfImage(HIMAGELIST images, int index, COLORREF ground);

// An icon of the program's resources as it is drawn in lists and on buttons.
Picture OfSmallIcon(WORD id, COLORREF ground);

// The client area of a window with its children, as it has been drawn. Needs a display.
Picture OfClient(HWND window);

}  // namespace Ui
