// Moments as the user's regional settings write them: short date, one blank, time with seconds. Both
// functions give the same static buffer of one thread, good until the next call.
#pragma once

#include "winlib/Windows.h"

// A time of the file system, left in UTC. A time that is no date gives no date.
const wchar_t* FormatFileTime(const FILETIME& time);

// The present moment in local time.
const wchar_t* FormatLocalTime();
