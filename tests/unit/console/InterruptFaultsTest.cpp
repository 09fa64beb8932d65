#include <gtest/gtest.h>

#include "FakeWin.h"
#include "console/Errors.h"
#include "console/Interrupt.h"
#include "winlib/Windows.h"

namespace {

struct InterruptFaults : testing::TestWithParam<DWORD> {
    InterruptFaults() { Console::CatchInterrupts(); }
};

TEST_P(InterruptFaults, EachEventInterruptsTheProgram) {
    EXPECT_FALSE(Console::Interrupted());
    EXPECT_NO_THROW(Console::ThrowIfInterrupted());
    EXPECT_TRUE(FakeWin::SendConsoleEvent(GetParam()));
    EXPECT_TRUE(Console::Interrupted());
    EXPECT_THROW(Console::ThrowIfInterrupted(), Console::Cancelled);
}

TEST_P(InterruptFaults, TheHandlerWaitsForTheEndIfTheSystemWouldEndTheProcess) {
    FakeWin::SendConsoleEvent(GetParam());
    const bool closing = GetParam() != CTRL_C_EVENT && GetParam() != CTRL_BREAK_EVENT;
    EXPECT_EQ(FakeWin::Sleeps(), closing ? std::vector<DWORD>{INFINITE} : std::vector<DWORD>());
}

INSTANTIATE_TEST_SUITE_P(Events, InterruptFaults,
                         testing::Values(CTRL_C_EVENT, CTRL_BREAK_EVENT, CTRL_CLOSE_EVENT, CTRL_LOGOFF_EVENT,
                                         CTRL_SHUTDOWN_EVENT));

}  // namespace
