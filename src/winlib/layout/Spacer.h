// Empty space along the direction of a stack.
#pragma once

#include "winlib/layout/Sizer.h"

namespace WinLib::Layout {

class Spacer : public Sizer {
protected:
    Spacer(int width, int height) { MinimumRect = CurrentRect = {0, 0, width, height}; }
};

class HSpacer : public Spacer {
public:
    explicit HSpacer(int size) : Spacer(size, 0) {}
};

class VSpacer : public Spacer {
public:
    explicit VSpacer(int size) : Spacer(0, size) {}
};

}  // namespace WinLib::Layout
