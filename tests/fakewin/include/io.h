// Streams of the C runtime on a handle of the system.
#pragma once

#include <stdint.h>
#include <stdio.h>

#define _O_TEXT 0x4000
#define _O_BINARY 0x8000

// Only for the standard input and the standard output.
int _open_osfhandle(intptr_t handle, int flags);

// mode is "rb" for the input; for the output "w", in which each 0A becomes 0D 0A, or "wb".
FILE* _fdopen(int descriptor, const char* mode);
