#include "console/Commands.h"

#include <gtest/gtest.h>

#include <set>

#include "FakeWin.h"
#include "winlib/Windows.h"

using Console::ExitCode;
using FakeWin::StandardError;
using FakeWin::StandardOutput;

namespace {

const std::string ListUsage =
    "Usage: tamblewickc list PRESET|--template NUMBER|NAME|--preset-file FILE FOLDER [options]\n";

}  // namespace

TEST(ConsoleCommands, EachHasAUsageAndFitsAConsole) {
    std::set<std::string> names;
    for (const Console::Command& command : Console::Commands()) {
        EXPECT_TRUE(names.insert(command.name).second) << command.name;
        EXPECT_LE(command.leastOperands, command.mostOperands);
        std::string text = command.help;
        while (!text.empty()) {
            EXPECT_LE(text.find('\n'), 112u) << text;
            text.erase(0, text.find('\n') + 1);
        }
    }
}

TEST(ConsoleCommands, VersionIsOneLine) {
    EXPECT_EQ(Console::RunProgram({L"--version"}), ExitCode::Complete);
    EXPECT_EQ(StandardOutput(), "Tamblewick 4.0.1\n");
    EXPECT_EQ(StandardError(), "");
}

TEST(ConsoleCommands, HelpShowsAllCommands) {
    std::string first;
    for (const wchar_t* option : {L"--help", L"-h", L"/?"}) {
        FakeWin::Reset();
        EXPECT_EQ(Console::RunProgram({option}), ExitCode::Complete);
        EXPECT_TRUE(StandardOutput().starts_with("Usage:\n  tamblewickc list "));
        EXPECT_TRUE(first.empty() || first == StandardOutput());
        first = StandardOutput();
    }
    for (const Console::Command& command : Console::Commands())
        EXPECT_NE(first.find("\n  tamblewickc " + std::string(command.name)), std::string::npos);
}

TEST(ConsoleCommands, HelpOfACommandBeginsWithItsUsage) {
    for (const wchar_t* option : {L"--help", L"-h", L"/?"}) {
        FakeWin::Reset();
        EXPECT_EQ(Console::RunProgram({L"list", option}), ExitCode::Complete);
        EXPECT_TRUE(StandardOutput().starts_with(ListUsage)) << StandardOutput();
        EXPECT_NE(StandardOutput().find("--format"), std::string::npos);
    }
}

TEST(ConsoleCommands, HelpIsAnOperandAfterTwoHyphens) {
    EXPECT_EQ(Console::RunProgram({L"list", L"x", L"--", L"/?"}), ExitCode::WrongUsage);
    EXPECT_EQ(StandardError(), "tamblewickc: there is no preset 'x'; see 'tamblewickc presets list'\n");
}

TEST(ConsoleCommands, WithoutACommandTheUsageIsShown) {
    EXPECT_EQ(Console::RunProgram({}), ExitCode::WrongUsage);
    EXPECT_EQ(StandardError(),
              "tamblewickc: a command is missing\nUsage: tamblewickc COMMAND ..., see tamblewickc --help\n");
    EXPECT_EQ(StandardOutput(), "");
}

TEST(ConsoleCommands, AnUnknownCommandIsNamed) {
    EXPECT_EQ(Console::RunProgram({L"lost", L"x"}), ExitCode::WrongUsage);
    EXPECT_EQ(
        StandardError(),
        "tamblewickc: there is no command 'lost'\nUsage: tamblewickc COMMAND ..., see tamblewickc --help\n");
}

TEST(ConsoleCommands, WrongArgumentsShowTheUsageOfTheCommand) {
    EXPECT_EQ(Console::RunProgram({L"list"}), ExitCode::WrongUsage);
    EXPECT_EQ(StandardError(), "tamblewickc: an argument is missing\n" + ListUsage);
}

TEST(ConsoleCommands, TooManyArgumentsAreAnError) {
    EXPECT_EQ(Console::RunProgram({L"list", L"a", L"b", L"c"}), ExitCode::WrongUsage);
    EXPECT_EQ(StandardError(), "tamblewickc: there is no place for the argument 'c'\n" + ListUsage);
}

TEST(ConsoleCommands, AnUnknownOptionIsAnError) {
    EXPECT_EQ(Console::RunProgram({L"list", L"a", L"b", L"--bogus"}), ExitCode::WrongUsage);
    EXPECT_EQ(StandardError(), "tamblewickc: there is no option '--bogus' here\n" + ListUsage);
}

TEST(ConsoleCommands, AFailedStandardOutputIsAnError) {
    FakeWin::FailOn(FakeWin::Call::WriteFile, L"standard output", ERROR_DISK_FULL);
    EXPECT_EQ(Console::RunProgram({L"--version"}), ExitCode::NotWritten);
    EXPECT_EQ(StandardError(), "tamblewickc: the standard output could not be written\n");
}
