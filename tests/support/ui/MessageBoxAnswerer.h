// Answers the message boxes of all other threads of this process, as workers show them: presses "OK" in each,
// from a thread of its own.
#pragma once

#include <atomic>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "support/ui/SeenDialog.h"

namespace Ui {

class MessageBoxAnswerer {
public:
    // mayAnswer is called with each box before it is answered, on this object's thread. While it returns
    // false, the box stays and mayAnswer is called again.
    explicit MessageBoxAnswerer(std::function<bool(HWND box)> mayAnswer = [](HWND) { return true; });
    MessageBoxAnswerer(const MessageBoxAnswerer&) = delete;
    MessageBoxAnswerer& operator=(const MessageBoxAnswerer&) = delete;
    ~MessageBoxAnswerer();

    // Returns the boxes that were answered.
    std::vector<SeenDialog> Seen() const;

    // Forgets the answered boxes with this in their text and returns their number.
    int TakeCount(const std::wstring& part);

private:
    void AnswerAll(DWORD creator);
    void Answer(HWND box);

    const std::function<bool(HWND)> mayAnswer_;
    mutable std::mutex mutex_;
    std::vector<SeenDialog> seen_;  // guarded by mutex_
    std::vector<HWND> answered_;    // and still there
    std::atomic<bool> stopped_ = false;
    std::thread thread_;
};

}  // namespace Ui
