// What the process holds in memory, to see what a module leaves in its host.
#pragma once

#include <cstddef>

// The bytes of all blocks in use in all heaps of the process, those of the C runtime included.
size_t HeapUse();

// The thread-local slots that the process has left.
size_t FreeThreadLocalSlots();
