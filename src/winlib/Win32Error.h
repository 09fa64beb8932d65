// A failed system call, told in the system's own words.
#pragma once

#include <cstdint>

#include "winlib/Exception.h"

namespace WinLib {

class Win32Error : public Exception {
public:
    // Takes code and text from GetLastError and then clears it. Make it on the thread that failed, right
    // behind the failing call.
    Win32Error();

    uint32_t Code;
};

}  // namespace WinLib
