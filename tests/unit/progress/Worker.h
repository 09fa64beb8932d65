// A job's thread as the program handles it: what it sends to the windows of this thread is served until it
// has come to its end, since a call such as EndDialog blocks otherwise.
#pragma once

#include <atomic>
#include <functional>
#include <thread>

#include "winlib/SentMessages.h"

class Worker {
public:
    explicit Worker(std::function<void()> work)
        : thread_([this, work = std::move(work)] {
              work();
              ended_ = true;
          }) {}
    Worker(const Worker&) = delete;
    Worker& operator=(const Worker&) = delete;
    ~Worker() {
        WinLib::WaitServingSentMessages([this] { return ended_.load(); });
        thread_.join();
    }

private:
    std::atomic<bool> ended_ = false;
    std::thread thread_;
};
