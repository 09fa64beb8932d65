// Formats times by the user's regional settings: short date, one blank, time with seconds. Both functions
// return the same static buffer, valid until the next call. Not thread-safe: to be called from the list's
// worker only.
#pragma once

#include "winlib/Windows.h"

// Formats a time of the file system, in UTC. Returns an empty text for a time that is no date.
const wchar_t* FormatFileTime(const FILETIME& time);

// Formats the current local time.
const wchar_t* FormatLocalTime();
