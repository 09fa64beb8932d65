// The one place that includes <windows.h>, so that every source sees it in the same shape: the narrow
// interface of Windows 7 and later, without the macros that collide with names of ours. Other headers of
// the platform (commctrl.h, shellapi.h, ...) are included behind this one by whoever needs them.
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
