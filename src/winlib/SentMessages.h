// Waits on the user-interface thread. MessageBoxW and EndDialog on a worker send messages to windows of this
// thread: if it only slept or joined, both threads would block.
#pragma once

#include <functional>

namespace WinLib {

// Returns as soon as done() is true. Calls it a hundred times in a row and then every 25 milliseconds, and
// serves sent messages before each call.
void WaitServingSentMessages(const std::function<bool()>& done);

}  // namespace WinLib
