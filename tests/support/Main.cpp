// The main function of every test program: a fresh world for each test, nothing left open behind it, and an
// end for a run that hangs.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <thread>

#include "support/Platform.h"

namespace {

constexpr auto TimeLimit = std::chrono::seconds(240);
constexpr int HangExitCode = 42;

class World : public testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo&) override { TestSupport::PrepareWorld(); }
    void OnTestEnd(const testing::TestInfo&) override {
        const std::string open = TestSupport::LeftOpen();
        EXPECT_TRUE(open.empty()) << "left open:\n" << open;
    }
};

// Ends the process when its time is up: a deadlock must not hold up everything behind it.
void StartWatchdog() {
    std::thread([] {
        std::this_thread::sleep_for(TimeLimit);
        std::fputs("The tests hang: the time limit is over.\n", stderr);
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
