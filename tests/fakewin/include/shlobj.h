// Notifications of the shell.
#pragma once

#include <windows.h>

#define SHCNE_ASSOCCHANGED 0x08000000
#define SHCNF_IDLIST 0x0000
#define SHCNF_FLUSH 0x1000
#define SHCNF_FLUSHNOWAIT 0x3000

void WINAPI SHChangeNotify(LONG event, UINT flags, LPCVOID first, LPCVOID second);
