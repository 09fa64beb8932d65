// Simulates a user who presses buttons while a job starts: performs queued actions when they are due and the
// progress dialog exists, from within the next message to the dialog's thread.
#pragma once

#include <atomic>
#include <functional>
#include <vector>

#include "MessageWatch.h"
#include "support/Random.h"

// When and how a simulated user acts, chosen at random.
struct InterferencePlan {
    // usual is how many messages an undisturbed start takes.
    InterferencePlan(Random& random, int usual);

    // Presses a button of a dialog of this thread. Returns whether the dialog handled it before the call
    // returns.
    bool Press(HWND dialog, int id) const;

    // Two clocks, of which one counts: messages of the dialog's thread, or steps of the worker.
    bool byMessages;
    int message;
    int step;

    int gap;         // messages between two acts
    bool posted;     // posted like a click, or else sent
    uint32_t turns;  // how often other threads may run before each act
};

class SimulatedUser {
public:
    // Called with the dialog, or with null if needsDialog is false.
    using Act = std::function<void(HWND dialog)>;

    SimulatedUser(const InterferencePlan& plan, std::vector<Act> acts, bool needsDialog);

    // At each message of the dialog's thread, on that thread.
    void OnMessage(const MessageWatch& watch);

    // At each step of the worker, on the worker.
    void OnStep(const MessageWatch& watch, int step);

    int Messages() const { return messages_; }

private:
    const InterferencePlan plan_;
    std::vector<Act> acts_;  // the next one last
    const bool needsDialog_;
    std::atomic<bool> due_ = false;
    bool acting_ = false;
    int messages_ = 0;
    int wait_ = 0;  // messages until the next act
};
