#include <gtest/gtest.h>

#include "FakeWin.h"
#include "console/Errors.h"
#include "console/Output.h"
#include "winlib/Windows.h"

using FakeWin::Call;

TEST(OutputFaults, AFailedWriteIsAnError) {
    FakeWin::Fail(Call::WriteFile, ERROR_DISK_FULL);
    try {
        Console::Print("text");
        FAIL();
    } catch (const Console::Error& error) {
        EXPECT_EQ(error.code, Console::ExitCode::NotWritten);
        EXPECT_STREQ(error.what(), "the standard output could not be written");
    }
}

TEST(OutputFaults, AClosedStandardOutputIsAnError) {
    FakeWin::CloseStandardOutput();
    EXPECT_THROW(Console::Print("text"), Console::Error);
    EXPECT_EQ(Console::OpenStandardOutput(true), nullptr);
}

TEST(OutputFaults, MessagesThatCannotBeWrittenAreDropped) {
    FakeWin::FailOn(Call::WriteFile, L"standard error", ERROR_DISK_FULL);
    Console::Warn("message");
    EXPECT_EQ(FakeWin::StandardError(), "");
}

TEST(OutputFaults, LongTextsAreWrittenWhole) {
    const std::string text(100'000, 'x');
    Console::Print(text);
    EXPECT_EQ(FakeWin::StandardOutput(), text);
}

TEST(OutputFaults, MessagesNameTheProgram) {
    Console::Warn("message");
    EXPECT_EQ(FakeWin::StandardError(), "tamblewickc: message\n");
}

TEST(OutputFaults, ConsolesTakeUtf8WhileTheProgramRuns) {
    const UINT before = GetConsoleOutputCP();
    {
        const Console::Utf8Console console;
        EXPECT_EQ(GetConsoleOutputCP(), static_cast<UINT>(CP_UTF8));
    }
    EXPECT_EQ(GetConsoleOutputCP(), before);
}
