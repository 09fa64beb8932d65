// The only place that includes <windows.h>, so that all sources see the same declarations: a lean set, for
// Windows 7 and later, without the macros that collide with our names. Include other headers of the platform
// (commctrl.h, shellapi.h, ...) after this one.
#pragma once

#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef STRICT
#define STRICT
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef _WIN32_WINNT
#define _WIN32_WINNT 0x0601
#endif

#include <windows.h>

#undef GetWindowText
#undef GetObject
#undef CreateDialog
#undef CreateFont
