// Runs the program for one folder after the other: the next one is started when the previous one has ended.
// A program chooses the name of its list by what is on the disk when it begins, so two that begin together
// would write the same file; and thousands of selected folders must not become as many processes.
//
// One thread waits for the programs and ends when nothing is left to start. It keeps the module loaded, but
// not its host: what has not been started when the host ends is dropped. A program that shows a message box
// runs until the box is closed, and the next one is not started before that.
#pragma once

#include <list>

#include "contextmenu/ProgramStart.h"

namespace StartQueue {

// Appends the starts, at least one, to those that wait already, and returns without waiting for a program. If
// no program runs, the first one is started before the call returns. A start that fails is skipped. Returns
// false if no program will run, or if no thread can be started and what follows the first program is dropped.
// Any thread may call this.
bool Append(std::list<ProgramStart> starts);

}  // namespace StartQueue
