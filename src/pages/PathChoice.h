// Part of the Saving and Opening pages: three radio buttons, of which the last enables a path that is typed
// or browsed for.
#pragma once

#include <array>
#include <cstdint>

#include "winlib/Windows.h"
#include "winlib/layout/Stack.h"

struct PathChoice {
    std::array<HWND, 3> buttons;
    HWND edit;
    HWND browse;

    void AddTo(WinLib::Layout::VStack& page) const;

    // Lets the path be typed and browsed for if choice is the index of the last button. Any number that no
    // button has is treated as the first.
    void EnablePath(uint32_t choice) const;
};
