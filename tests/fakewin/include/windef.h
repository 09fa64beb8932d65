// The basic types of Win32 as the stand-in has them. Their sizes are those of 64-bit Windows, wchar_t
// excepted: here it is 32 bits wide and holds one UTF-16 unit.
#pragma once

#include <stddef.h>
#include <stdint.h>
#include <wchar.h>

#define WINAPI
#define CALLBACK
#define APIENTRY
#define CONST const
#define VOID void

#define TRUE 1
#define FALSE 0
#define MAX_PATH 260
#define INFINITE 0xFFFFFFFF

typedef int BOOL;
typedef BOOL* PBOOL;
typedef BOOL* LPBOOL;
typedef uint8_t BYTE;
typedef BYTE* PBYTE;
typedef BYTE* LPBYTE;
typedef uint8_t BOOLEAN;
typedef char CHAR;
typedef char* LPSTR;
typedef const char* LPCSTR;
typedef wchar_t WCHAR;
typedef wchar_t* PWSTR;
typedef wchar_t* LPWSTR;
typedef const wchar_t* LPCWSTR;
typedef const wchar_t* PCWSTR;
typedef int16_t SHORT;
typedef uint16_t USHORT;
typedef uint16_t WORD;
typedef int INT;
typedef unsigned int UINT;
typedef int32_t LONG;
typedef uint32_t ULONG;
typedef uint32_t DWORD;
typedef DWORD* PDWORD;
typedef DWORD* LPDWORD;
typedef int64_t LONGLONG;
typedef uint64_t ULONGLONG;
typedef uint64_t DWORD64;
typedef intptr_t INT_PTR;
typedef uintptr_t UINT_PTR;
typedef intptr_t LONG_PTR;
typedef uintptr_t ULONG_PTR;
typedef ULONG_PTR DWORD_PTR;
typedef size_t SIZE_T;
typedef void* PVOID;
typedef void* LPVOID;
typedef const void* LPCVOID;

typedef UINT_PTR WPARAM;
typedef LONG_PTR LPARAM;
typedef LONG_PTR LRESULT;
typedef LONG HRESULT;
typedef LONG LSTATUS;
typedef WORD LANGID;
typedef DWORD LCID;
typedef DWORD REGSAM;
typedef DWORD COLORREF;
typedef WORD ATOM;

typedef void* HANDLE;
typedef HANDLE HLOCAL;
typedef HANDLE HGLOBAL;

// Each kind of handle is a pointer type of its own, so that none can be passed for another.
#define FAKEWIN_HANDLE(name) \
    struct name##__ {        \
        int unused;          \
    };                       \
    typedef name##__* name
FAKEWIN_HANDLE(HWND);
FAKEWIN_HANDLE(HINSTANCE);
FAKEWIN_HANDLE(HKEY);
FAKEWIN_HANDLE(HICON);
FAKEWIN_HANDLE(HMENU);
FAKEWIN_HANDLE(HACCEL);
FAKEWIN_HANDLE(HFONT);
FAKEWIN_HANDLE(HIMAGELIST);
FAKEWIN_HANDLE(HBRUSH);
FAKEWIN_HANDLE(HBITMAP);
FAKEWIN_HANDLE(HDC);
FAKEWIN_HANDLE(HRGN);
FAKEWIN_HANDLE(HMONITOR);
#undef FAKEWIN_HANDLE
typedef HINSTANCE HMODULE;
typedef HICON HCURSOR;
typedef void* HGDIOBJ;
typedef HKEY* PHKEY;
typedef INT_PTR (*FARPROC)();

#define INVALID_HANDLE_VALUE (reinterpret_cast<HANDLE>(static_cast<LONG_PTR>(-1)))

struct FILETIME {
    DWORD dwLowDateTime;
    DWORD dwHighDateTime;
};
typedef FILETIME* LPFILETIME;

struct SYSTEMTIME {
    WORD wYear;
    WORD wMonth;
    WORD wDayOfWeek;
    WORD wDay;
    WORD wHour;
    WORD wMinute;
    WORD wSecond;
    WORD wMilliseconds;
};
typedef SYSTEMTIME* LPSYSTEMTIME;

struct POINT {
    LONG x;
    LONG y;
};
typedef POINT* LPPOINT;

struct SIZE {
    LONG cx;
    LONG cy;
};

struct RECT {
    LONG left;
    LONG top;
    LONG right;
    LONG bottom;
};
typedef RECT* LPRECT;
typedef const RECT* LPCRECT;

struct SECURITY_ATTRIBUTES;
typedef SECURITY_ATTRIBUTES* LPSECURITY_ATTRIBUTES;

#define LOWORD(value) (static_cast<WORD>((static_cast<DWORD_PTR>(value)) & 0xFFFF))
#define HIWORD(value) (static_cast<WORD>(((static_cast<DWORD_PTR>(value)) >> 16) & 0xFFFF))
#define LOBYTE(value) (static_cast<BYTE>((static_cast<DWORD_PTR>(value)) & 0xFF))
#define HIBYTE(value) (static_cast<BYTE>(((static_cast<DWORD_PTR>(value)) >> 8) & 0xFF))
#define MAKELONG(low, high) \
    (static_cast<LONG>(static_cast<DWORD>(LOWORD(low)) | (static_cast<DWORD>(LOWORD(high)) << 16)))
#define MAKEWPARAM(low, high) (static_cast<WPARAM>(static_cast<DWORD>(MAKELONG(low, high))))
#define MAKELPARAM(low, high) (static_cast<LPARAM>(static_cast<DWORD>(MAKELONG(low, high))))
