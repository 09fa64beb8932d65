// The program from its first step to its exit code, and the last line of defence against exceptions.
#pragma once

// Without arguments shows the main window until the user closes it. Otherwise makes one list of the second
// argument with the preset whose key is the first, and does nothing at all if either is missing. Returns the
// exit code, which is -1 after an exception; its message has been shown then.
// REQUIRES: the process has its WinLib::Application.
int AppMain();
