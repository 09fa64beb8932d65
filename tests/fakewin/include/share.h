// Opening a file of the C runtime with a share mode.
#pragma once

#include <stdio.h>
#include <wchar.h>

#define _SH_DENYRW 0x10
#define _SH_DENYWR 0x20
#define _SH_DENYRD 0x30
#define _SH_DENYNO 0x40

// mode is L"w", in which each 0A becomes 0D 0A on its way into the file, L"wb" or L"rb". Null on failure.
FILE* _wfsopen(const wchar_t* path, const wchar_t* mode, int share);
