// Files, time, processes and the last error.
#pragma once

#include <stdarg.h>
#include <windef.h>

DWORD WINAPI GetLastError();
void WINAPI SetLastError(DWORD error);

// Files

#define FILE_ATTRIBUTE_READONLY 0x1
#define FILE_ATTRIBUTE_HIDDEN 0x2
#define FILE_ATTRIBUTE_SYSTEM 0x4
#define FILE_ATTRIBUTE_DIRECTORY 0x10
#define FILE_ATTRIBUTE_ARCHIVE 0x20
#define FILE_ATTRIBUTE_DEVICE 0x40
#define FILE_ATTRIBUTE_NORMAL 0x80
#define FILE_ATTRIBUTE_TEMPORARY 0x100
#define FILE_ATTRIBUTE_SPARSE_FILE 0x200
#define FILE_ATTRIBUTE_REPARSE_POINT 0x400
#define FILE_ATTRIBUTE_COMPRESSED 0x800
#define FILE_ATTRIBUTE_OFFLINE 0x1000
#define FILE_ATTRIBUTE_NOT_CONTENT_INDEXED 0x2000
#define FILE_ATTRIBUTE_ENCRYPTED 0x4000
#define INVALID_FILE_ATTRIBUTES (static_cast<DWORD>(-1))

#define FIND_FIRST_EX_CASE_SENSITIVE 0x1
#define FIND_FIRST_EX_LARGE_FETCH 0x2

enum GET_FILEEX_INFO_LEVELS { GetFileExInfoStandard, GetFileExMaxInfoLevel };
enum FINDEX_INFO_LEVELS { FindExInfoStandard, FindExInfoBasic, FindExInfoMaxInfoLevel };
enum FINDEX_SEARCH_OPS { FindExSearchNameMatch, FindExSearchLimitToDirectories };

struct WIN32_FILE_ATTRIBUTE_DATA {
    DWORD dwFileAttributes;
    FILETIME ftCreationTime;
    FILETIME ftLastAccessTime;
    FILETIME ftLastWriteTime;
    DWORD nFileSizeHigh;
    DWORD nFileSizeLow;
};

struct WIN32_FIND_DATAW {
    DWORD dwFileAttributes;
    FILETIME ftCreationTime;
    FILETIME ftLastAccessTime;
    FILETIME ftLastWriteTime;
    DWORD nFileSizeHigh;
    DWORD nFileSizeLow;
    DWORD dwReserved0;
    DWORD dwReserved1;
    WCHAR cFileName[MAX_PATH];
    WCHAR cAlternateFileName[14];
};
typedef WIN32_FIND_DATAW* LPWIN32_FIND_DATAW;

DWORD WINAPI GetFileAttributesW(LPCWSTR path);
BOOL WINAPI GetFileAttributesExW(LPCWSTR path, GET_FILEEX_INFO_LEVELS level, LPVOID data);
HANDLE WINAPI FindFirstFileExW(LPCWSTR query, FINDEX_INFO_LEVELS level, LPVOID data,
                               FINDEX_SEARCH_OPS operation, LPVOID filter, DWORD flags);
BOOL WINAPI FindNextFileW(HANDLE find, LPWIN32_FIND_DATAW data);
BOOL WINAPI FindClose(HANDLE find);
DWORD WINAPI GetTempPathW(DWORD size, LPWSTR buffer);
DWORD WINAPI GetModuleFileNameW(HMODULE module, LPWSTR buffer, DWORD size);
DWORD WINAPI GetLongPathNameW(LPCWSTR path, LPWSTR buffer, DWORD size);

// part must be null.
DWORD WINAPI GetFullPathNameW(LPCWSTR path, DWORD size, LPWSTR buffer, LPWSTR* part);

#define MOVEFILE_REPLACE_EXISTING 0x1

#define GENERIC_READ 0x80000000
#define FILE_SHARE_READ 0x1
#define FILE_SHARE_WRITE 0x2
#define FILE_SHARE_DELETE 0x4
#define OPEN_EXISTING 3
#define FILE_FLAG_SEQUENTIAL_SCAN 0x08000000

// Opens existing files for reading, shared with everything.
HANDLE WINAPI CreateFileW(LPCWSTR path, DWORD access, DWORD share, LPSECURITY_ATTRIBUTES attributes,
                          DWORD creation, DWORD flags, HANDLE model);

// Of files that CreateFileW has opened.
BOOL WINAPI ReadFile(HANDLE file, LPVOID buffer, DWORD size, LPDWORD read, LPVOID overlapped);

BOOL WINAPI DeleteFileW(LPCWSTR path);

// Moves files, with MOVEFILE_REPLACE_EXISTING alone.
BOOL WINAPI MoveFileExW(LPCWSTR from, LPCWSTR to, DWORD flags);

// Time

DWORD WINAPI GetTickCount();
void WINAPI Sleep(DWORD milliseconds);
void WINAPI GetSystemTimeAsFileTime(LPFILETIME time);
void WINAPI GetLocalTime(LPSYSTEMTIME time);
BOOL WINAPI FileTimeToSystemTime(const FILETIME* fileTime, LPSYSTEMTIME systemTime);
BOOL WINAPI SystemTimeToFileTime(const SYSTEMTIME* systemTime, LPFILETIME fileTime);
LONG WINAPI CompareFileTime(const FILETIME* first, const FILETIME* second);

// Processes and modules

#define WAIT_OBJECT_0 0
#define WAIT_ABANDONED 0x80
#define WAIT_TIMEOUT 258
#define WAIT_FAILED 0xFFFFFFFF
#define STILL_ACTIVE 259

HMODULE WINAPI GetModuleHandleW(LPCWSTR name);
HMODULE WINAPI LoadLibraryExW(LPCWSTR path, HANDLE file, DWORD flags);
BOOL WINAPI FreeLibrary(HMODULE module);
FARPROC WINAPI GetProcAddress(HMODULE module, LPCSTR name);
HANDLE WINAPI GetCurrentProcess();
DWORD WINAPI GetCurrentThreadId();
DWORD WINAPI WaitForSingleObject(HANDLE handle, DWORD milliseconds);
BOOL WINAPI GetExitCodeProcess(HANDLE process, LPDWORD exitCode);
HANDLE WINAPI CreateMutexW(LPSECURITY_ATTRIBUTES attributes, BOOL owned, LPCWSTR name);
BOOL WINAPI ReleaseMutex(HANDLE mutex);
BOOL WINAPI CloseHandle(HANDLE handle);

// System messages

#define FORMAT_MESSAGE_ALLOCATE_BUFFER 0x100
#define FORMAT_MESSAGE_IGNORE_INSERTS 0x200
#define FORMAT_MESSAGE_FROM_SYSTEM 0x1000

#define LANG_NEUTRAL 0
#define SUBLANG_DEFAULT 1
#define MAKELANGID(primary, sub) \
    (static_cast<WORD>((static_cast<WORD>(sub) << 10) | static_cast<WORD>(primary)))

// Only with FORMAT_MESSAGE_ALLOCATE_BUFFER: buffer is the address of the pointer that receives the text.
DWORD WINAPI FormatMessageW(DWORD flags, LPCVOID source, DWORD messageId, DWORD languageId, LPWSTR buffer,
                            DWORD size, va_list* arguments);
HLOCAL WINAPI LocalFree(HLOCAL memory);
