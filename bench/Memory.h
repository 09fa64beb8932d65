// How much memory the program holds in objects made with new.
#pragma once

#include <cstddef>

namespace Memory {

// Now, and at most since the last ResetPeak; in bytes as the allocator rounds them.
std::size_t Live();
std::size_t Peak();
void ResetPeak();

}  // namespace Memory
