#include "writers/DateTime.h"

namespace {

constexpr int BufferSize = 256;
wchar_t Buffer[BufferSize];

const wchar_t* Format(const SYSTEMTIME& time) {
    // The length includes the terminating NUL, which the blank replaces.
    const int length =
        GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &time, nullptr, Buffer, BufferSize);
    if (length > 0)
        Buffer[length - 1] = L' ';
    GetTimeFormatW(LOCALE_USER_DEFAULT, 0, &time, nullptr, Buffer + length, BufferSize - length);
    return Buffer;
}

}  // namespace

const wchar_t* FormatFileTime(const FILETIME& time) {
    SYSTEMTIME utc = {};
    FileTimeToSystemTime(&time, &utc);
    return Format(utc);
}

const wchar_t* FormatLocalTime() {
    SYSTEMTIME local = {};
    GetLocalTime(&local);
    return Format(local);
}
