#include "RaceThreads.h"

#include <atomic>
#include <iostream>
#include <thread>

#include "support/windows/Resources.h"
#include "winlib/SentMessages.h"
#include "winlib/Windows.h"

namespace {

class Races {
public:
    Races(int starts, const std::function<std::unique_ptr<RaceThread>(int)>& open)
        : starts_(starts), warmUp_(starts / 10 + 2 * RaceThreadCount), firstSeed_(FirstSeed()), open_(open) {}

    void Run() {
        // Wine fails if several threads create the first dialog of a process at the same time.
        RaceOnce(*open_(0), firstSeed_);
        std::vector<std::thread> threads;
        for (int number = 0; number < RaceThreadCount; ++number)
            threads.emplace_back([this, number] { WorkAt(number); });
        for (std::thread& thread : threads)
            thread.join();
        std::cout << "TAMBLEWICK_SEED=" << firstSeed_ << ", " << starts_ << " starts; first " << before_
                  << ", at the end " << after_ << '\n';
        EXPECT_EQ(failure_, "");
        EXPECT_TRUE(after_.IsWithin(before_)) << "first " << before_ << ", at the end " << after_;
    }

private:
    void WorkAt(int number) {
        const std::unique_ptr<RaceThread> thread = open_(number);
        RaceUntil(*thread, warmUp_);
        Meet(before_);
        RaceUntil(*thread, starts_);
        Meet(after_);
    }

    void RaceUntil(RaceThread& thread, int end) {
        while (!failed_) {
            int start = next_;
            while (start < end && !next_.compare_exchange_weak(start, start + 1)) {
            }
            if (start >= end)
                return;
            RaceOnce(thread, firstSeed_ + static_cast<uint32_t>(start));
        }
    }

    void RaceOnce(RaceThread& thread, uint32_t seed) {
        Random random(seed);
        const std::string complaints = thread.Race(random);
        if (!complaints.empty() && !failed_.exchange(true))
            failure_ = "TAMBLEWICK_SEED=" + std::to_string(seed) + "\n" + complaints;
    }

    // All threads meet, the last one counts, and all go on. Meanwhile each serves what others may send to it.
    void Meet(Resources& count) {
        const int arrived = ++arrived_;
        const int meeting = (arrived - 1) / RaceThreadCount + 1;
        if (arrived == meeting * RaceThreadCount) {
            count = Resources::Now();
            counted_ = meeting;
        }
        WinLib::WaitServingSentMessages([&] { return counted_ >= meeting; });
    }

    const int starts_;
    const int warmUp_;
    const uint32_t firstSeed_;
    const std::function<std::unique_ptr<RaceThread>(int)>& open_;
    std::atomic<int> next_ = 0;
    std::atomic<bool> failed_ = false;
    std::string failure_;
    std::atomic<int> arrived_ = 0;
    std::atomic<int> counted_ = 0;
    Resources before_ = {};
    Resources after_ = {};
};

}  // namespace

void RaceOnThreads(int starts, const std::function<std::unique_ptr<RaceThread>(int)>& open) {
    Races(starts, open).Run();
}

int WindowsOfThisThread() {
    int count = 0;
    EnumThreadWindows(
        GetCurrentThreadId(),
        [](HWND, LPARAM counter) -> BOOL {
            ++*reinterpret_cast<int*>(counter);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&count));
    return count;
}
