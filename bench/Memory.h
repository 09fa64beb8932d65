// How much memory the program holds in objects made with new.
#pragma once

#include <cstddef>

namespace Memory {

// Now, and at most since the last ResetPeak; in bytes as the allocator rounds them.
size_t Live();
size_t Peak();
void ResetPeak();

}  // namespace Memory
