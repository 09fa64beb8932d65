// The main function of every test program: a fresh world for each test, nothing left open after it, and an
// end for a test that hangs.
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <thread>

#include "support/Platform.h"

namespace {

using Clock = std::chrono::steady_clock;

constexpr auto TimeLimit = std::chrono::seconds(240);
constexpr int HangExitCode = 42;

// When the test that runs has to have ended.
std::atomic<Clock::time_point> deadline = Clock::now() + TimeLimit;

class World : public testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo&) override {
        deadline = Clock::now() + TimeLimit;
        TestSupport::PrepareWorld();
    }
    void OnTestEnd(const testing::TestInfo&) override {
        const std::string open = TestSupport::LeftOpen();
        EXPECT_TRUE(open.empty()) << "left open:\n" << open;
    }
};

// Ends the process when a test's time is up: a deadlock must not block all later tests.
void StartWatchdog() {
    std::thread([] {
        while (Clock::now() < deadline.load())
            std::this_thread::sleep_until(deadline.load());
        std::fputs("The test hangs: its time limit is over.\n", stderr);
        std::_Exit(HangExitCode);
    }).detach();
}

}  // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    testing::UnitTest::GetInstance()->listeners().Append(new World);
    StartWatchdog();
    return RUN_ALL_TESTS();
}
