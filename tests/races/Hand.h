// The one who interferes with a start: does its acts one after the other as soon as they are due and the
// progress dialog is there, from within whatever message then comes to the thread of the dialog.
#pragma once

#include <atomic>
#include <functional>
#include <vector>

#include "MessageWatch.h"
#include "support/Random.h"

// The moment and the manner of what a hand does, drawn at random.
struct Manner {
    // usual is how many messages an undisturbed start takes.
    Manner(Random& random, int usual);

    // Presses a button of a dialog of this thread; true if that was taken before the call returns.
    bool Press(HWND dialog, int id) const;

    // Two clocks, of which one counts: messages of the dialog's thread, or steps of the worker.
    bool byMessages;
    int message;
    int step;

    int gap;         // messages between two acts
    bool posted;     // by way of the queue, as a click comes, or at once, as a sent message does
    uint32_t turns;  // of other threads before each act
};

class Hand {
public:
    // An act gets the dialog, or null if it needs none.
    using Act = std::function<void(HWND dialog)>;

    Hand(const Manner& manner, std::vector<Act> acts, bool needsDialog);

    // At each message of the dialog's thread, on that thread.
    void OnMessage(const MessageWatch& watch);

    // At each step of the worker, on the worker.
    void OnStep(const MessageWatch& watch, int step);

    int Messages() const { return messages_; }

private:
    const Manner manner_;
    std::vector<Act> acts_;  // the next one last
    const bool needsDialog_;
    std::atomic<bool> due_ = false;
    bool acting_ = false;
    int messages_ = 0;
    int wait_ = 0;  // messages until the next act
};
