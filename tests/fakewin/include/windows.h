// Win32 as far as the program's logic needs it, implemented in memory by the files of tests/fakewin. Only the
// W functions and those without text exist, each under its own name and as a function. What a test can do to
// this world is in FakeWin.h.
#pragma once

#include <windef.h>
#include <winerror.h>

#include <winbase.h>
#include <wincon.h>
#include <winnls.h>
#include <winreg.h>
#include <winuser.h>
