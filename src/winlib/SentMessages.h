// Waiting on the user-interface thread. A worker's MessageBoxW and EndDialog send messages to windows of this
// thread; if the thread only slept or joined, both would stand still.
#pragma once

#include <functional>

namespace WinLib {

// Returns as soon as done() is true, which is asked a hundred times in a row and then every 25 milliseconds;
// serves sent messages each time before it asks.
void WaitServingSentMessages(const std::function<bool()>& done);

}  // namespace WinLib
