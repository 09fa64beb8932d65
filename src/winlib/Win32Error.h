// A failed system call with the system's message.
#pragma once

#include <cstdint>

#include "winlib/Exception.h"

namespace WinLib {

class Win32Error : public Exception {
public:
    // Takes code and message from GetLastError and then clears it. To be constructed on the thread of the
    // failed call, directly after it.
    Win32Error();

    uint32_t Code;
};

}  // namespace WinLib
