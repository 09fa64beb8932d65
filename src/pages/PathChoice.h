// What the pages Saving and Opening share: three radio buttons, of which the last stands for a path that is
// typed or browsed for and cannot be touched otherwise.
#pragma once

#include <array>

#include "winlib/Windows.h"
#include "winlib/layout/Stack.h"

struct PathChoice {
    std::array<HWND, 3> buttons;
    HWND edit;
    HWND browse;

    void AddTo(WinLib::Layout::VStack& page) const;

    // For the path to be typed or browsed for, or not.
    void EnablePath(bool enable) const;
};
