// The numbers of the common controls that the logic names.
#pragma once

#include <windows.h>

#define NM_FIRST (0U - 0U)
#define NM_CLICK (NM_FIRST - 2)
#define NM_DBLCLK (NM_FIRST - 3)
#define NM_RETURN (NM_FIRST - 4)
#define NM_SETFOCUS (NM_FIRST - 7)
#define NM_KILLFOCUS (NM_FIRST - 8)

#define LVN_FIRST (0U - 100U)
#define LVN_ITEMCHANGED (LVN_FIRST - 1)
#define LVN_BEGINLABELEDITW (LVN_FIRST - 75)
#define LVN_ENDLABELEDITW (LVN_FIRST - 76)

#define TVN_FIRST (0U - 400U)
#define TVN_SELCHANGEDW (TVN_FIRST - 51)

#define PROGRESS_CLASSW L"msctls_progress32"
#define PBS_SMOOTH 0x01
#define PBS_MARQUEE 0x08
#define PBM_SETRANGE (WM_USER + 1)
#define PBM_SETPOS (WM_USER + 2)
#define PBM_SETRANGE32 (WM_USER + 6)
#define PBM_GETPOS (WM_USER + 8)
#define PBM_SETMARQUEE (WM_USER + 10)

// Declared only: the program's libraries that run here have no image lists.
BOOL WINAPI ImageList_Destroy(HIMAGELIST list);
