// Counts the windows, handles and objects of this process, to be compared before and after many starts.
#pragma once

#include <ostream>

struct Resources {
    static Resources Now();

    // Whether nothing has grown but for what the system makes once for several threads and keeps.
    bool IsWithin(const Resources& before) const;

    int handles;      // of the kernel
    int userObjects;  // 0 where the system does not report them
    int gdiObjects;
};

std::ostream& operator<<(std::ostream& out, const Resources& resources);
