// Text in the user's locale.
#pragma once

#include <windef.h>

#define LOCALE_USER_DEFAULT 0x0400
#define LOCALE_INVARIANT 0x007F

#define NORM_IGNORECASE 0x1
#define SORT_DIGITSASNUMBERS 0x8

#define CSTR_LESS_THAN 1
#define CSTR_EQUAL 2
#define CSTR_GREATER_THAN 3

#define LOCALE_SLIST 0xC

#define DATE_SHORTDATE 0x1

// Only LOCALE_SLIST.
int WINAPI GetLocaleInfoW(LCID locale, DWORD type, LPWSTR buffer, int size);

int WINAPI CompareStringW(LCID locale, DWORD flags, LPCWSTR first, int firstLength, LPCWSTR second,
                          int secondLength);
int WINAPI CompareStringOrdinal(LPCWSTR first, int firstLength, LPCWSTR second, int secondLength,
                                BOOL ignoreCase);
int WINAPI GetDateFormatW(LCID locale, DWORD flags, const SYSTEMTIME* date, LPCWSTR format, LPWSTR buffer,
                          int size);
int WINAPI GetTimeFormatW(LCID locale, DWORD flags, const SYSTEMTIME* time, LPCWSTR format, LPWSTR buffer,
                          int size);

// A pointer whose high word is zero is one character and comes back in lower case; otherwise the text at
// the pointer is changed in place.
LPWSTR WINAPI CharLowerW(LPWSTR text);

// Of the C runtime.
int _stricmp(const char* first, const char* second);
int _wcsicmp(const wchar_t* first, const wchar_t* second);
