// Ctrl+C, Ctrl+Break, the closing of the console and the end of the session: each asks the running command to
// end, which then removes what it has not completed.
#pragma once

namespace Console {

// From now on the events set a flag and no longer end the process.
void CatchInterrupts();

// Returns whether one of the events has occurred. May be called from any thread.
bool Interrupted();

// Throws Cancelled if one of the events has occurred.
void ThrowIfInterrupted();

}  // namespace Console
