// The standard streams and the console.
#pragma once

#include <windef.h>

#define STD_INPUT_HANDLE (static_cast<DWORD>(-10))
#define STD_OUTPUT_HANDLE (static_cast<DWORD>(-11))
#define STD_ERROR_HANDLE (static_cast<DWORD>(-12))
#define CP_UTF8 65001

#define CTRL_C_EVENT 0
#define CTRL_BREAK_EVENT 1
#define CTRL_CLOSE_EVENT 2
#define CTRL_LOGOFF_EVENT 5
#define CTRL_SHUTDOWN_EVENT 6

struct COORD {
    SHORT X;
    SHORT Y;
};

struct CONSOLE_SCREEN_BUFFER_INFO {
    COORD dwSize;
};

typedef BOOL (*PHANDLER_ROUTINE)(DWORD event);

HANDLE WINAPI GetStdHandle(DWORD stream);
BOOL WINAPI GetConsoleMode(HANDLE handle, LPDWORD mode);
BOOL WINAPI GetConsoleScreenBufferInfo(HANDLE handle, CONSOLE_SCREEN_BUFFER_INFO* info);
UINT WINAPI GetConsoleOutputCP();
BOOL WINAPI SetConsoleOutputCP(UINT codePage);
BOOL WINAPI SetConsoleCtrlHandler(PHANDLER_ROUTINE handler, BOOL add);

// Only for the standard streams.
BOOL WINAPI WriteFile(HANDLE handle, LPCVOID data, DWORD size, LPDWORD written, LPVOID overlapped);
