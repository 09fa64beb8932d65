// Many starts at once: most of the time of one is spent waiting for timers, so several threads with windows
// of their own share the work.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "support/Random.h"

constexpr int RaceThreadCount = 16;

// What one of the threads does. Created, used and destroyed on it.
class RaceThread {
public:
    virtual ~RaceThread() = default;

    // One start. Returns what was wrong, or nothing.
    virtual std::string Race(Random& random) = 0;
};

// Makes this many starts, each with a seed of its own. Fails the test with the seed and the complaints of the
// first start that has any, and if the process holds more handles after all starts than after the
// first tenth of them.
void RaceOnThreads(int starts, const std::function<std::unique_ptr<RaceThread>(int number)>& open);

// How many top-level windows this thread has, visible or not.
int WindowsOfThisThread();
