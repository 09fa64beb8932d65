// Lists that fail: the list of yesterday stays, no incomplete file stays, and the exit code says what
// happened.
#include <array>

#include "ConsoleRun.h"
#include "winlib/Windows.h"

using Console::ExitCode;
using Console::RunProgram;
using FakeWin::Call;
using FakeWin::Contents;
using FakeWin::StandardError;
using FakeWin::StandardOutput;

namespace {

struct ListCommandFaults : ListFixture {
    static void ExpectNothingWritten() {
        EXPECT_EQ(Contents(Output), Yesterday);
        EXPECT_FALSE(FakeWin::EntryExists(Part));
        EXPECT_EQ(StandardOutput(), "");
        EXPECT_EQ(FakeWin::LeftOpen(), "");
    }
};

TEST_F(ListCommandFaults, AFolderThatDoesNotExist) {
    FakeWin::RemoveEntry(L"C:\\Data");
    EXPECT_EQ(RunList(), ExitCode::Failed);
    EXPECT_EQ(
        StandardError(),
        "tamblewickc: The folder 'C:\\Data' does not exist or cannot be accessed by the application.\n");
    ExpectNothingWritten();
}

TEST_F(ListCommandFaults, AFileInPlaceOfAFolder) {
    EXPECT_EQ(RunProgram({L"list", L"--template", L"0", L"C:\\Data\\a.txt", L"-o", Output}),
              ExitCode::Failed);
    EXPECT_EQ(
        StandardError(),
        "tamblewickc: An unknown error has occurred when trying to search the path 'C:\\Data\\a.txt'.\n");
    ExpectNothingWritten();
}

TEST_F(ListCommandFaults, ARefusedFolderIsNamedAndTheListWritten) {
    FakeWin::FailOn(Call::FindFirstFileExW, L"C:\\Data\\Sub", ERROR_ACCESS_DENIED);
    EXPECT_EQ(RunList(), ExitCode::Incomplete);
    EXPECT_EQ(StandardError(), "tamblewickc: the folder 'C:\\Data\\Sub' could not be read: access denied\n");
    EXPECT_EQ(StandardOutput(), "C:\\Lists\\out.txt\n");
    EXPECT_NE(Contents(Output)->find("C:\\Data\\a.txt"), std::string::npos);
}

TEST_F(ListCommandFaults, EachRefusedFolderIsNamed) {
    FakeWin::AddFile(L"C:\\Data\\Two\\c.txt");
    FakeWin::FailOn(Call::FindFirstFileExW, L"C:\\Data\\Sub", ERROR_ACCESS_DENIED);
    FakeWin::FailOn(Call::FindFirstFileExW, L"C:\\Data\\Two", ERROR_ACCESS_DENIED);
    EXPECT_EQ(RunList(), ExitCode::Incomplete);
    EXPECT_EQ(StandardError(),
              "tamblewickc: the folder 'C:\\Data\\Sub' could not be read: access denied\n"
              "tamblewickc: the folder 'C:\\Data\\Two' could not be read: access denied\n");
}

TEST_F(ListCommandFaults, QuietKeepsTheExitCode) {
    FakeWin::FailOn(Call::FindFirstFileExW, L"C:\\Data\\Sub", ERROR_ACCESS_DENIED);
    EXPECT_EQ(RunList({L"-q"}), ExitCode::Incomplete);
    EXPECT_EQ(StandardError(), "");
    EXPECT_EQ(StandardOutput(), "");
}

TEST_F(ListCommandFaults, QuietKeepsErrors) {
    FakeWin::Fail(Call::MoveFileExW, ERROR_ACCESS_DENIED);
    EXPECT_EQ(RunList({L"-q"}), ExitCode::NotWritten);
    EXPECT_NE(StandardError(), "");
    ExpectNothingWritten();
}

TEST_F(ListCommandFaults, TheFolderItselfIsRefused) {
    FakeWin::FailOn(Call::FindFirstFileExW, L"C:\\Data", ERROR_ACCESS_DENIED);
    EXPECT_EQ(RunList(), ExitCode::Failed);
    EXPECT_EQ(StandardError(),
              "tamblewickc: access to the folder 'C:\\Data' was denied; check its permissions\n");
    ExpectNothingWritten();
}

TEST_F(ListCommandFaults, AnEnumerationThatBreaksOff) {
    FakeWin::FailFindNext(L"C:\\Data\\Sub", 2, ERROR_INVALID_NAME);
    EXPECT_EQ(RunList(), ExitCode::Failed);
    EXPECT_EQ(StandardError(),
              "tamblewickc: An unknown error has occurred when trying to search the path 'C:\\Data\\Sub'.\n");
    ExpectNothingWritten();
}

TEST_F(ListCommandFaults, TheFileCannotBeCreated) {
    FakeWin::Fail(Call::OpenFile, ERROR_ACCESS_DENIED);
    EXPECT_EQ(RunList(), ExitCode::NotWritten);
    EXPECT_EQ(
        StandardError(),
        "tamblewickc: the list 'C:\\Lists\\out.txt' cannot be created; check that its folder exists and may "
        "be written to, and that 'C:\\Lists\\out.txt.part' is not in use\n");
    ExpectNothingWritten();
}

TEST_F(ListCommandFaults, AFileOfAnotherRunIsNotDeleted) {
    FakeWin::AddFile(Part, std::string("of another run"));
    FakeWin::Fail(Call::OpenFile, ERROR_SHARING_VIOLATION);
    EXPECT_EQ(RunList(), ExitCode::NotWritten);
    EXPECT_EQ(Contents(Part), "of another run");
}

TEST_F(ListCommandFaults, EachWriteFails) {
    // Several writes: the list is larger than their buffer.
    for (int i = 0; i < 5000; ++i)
        FakeWin::AddFile(L"C:\\Data\\a file with a long name " + std::to_wstring(i) + L".txt");
    ASSERT_EQ(RunList(), ExitCode::Complete);
    const int writes = FakeWin::WritesTo(Part);
    ASSERT_GT(writes, 3);
    for (int write = 1; write <= writes; ++write) {
        FakeWin::AddFile(Output, Yesterday);
        const std::string before = StandardOutput();
        FakeWin::FailNth(Call::WriteFile, write, ERROR_DISK_FULL);
        EXPECT_EQ(RunList(), ExitCode::NotWritten) << write;
        EXPECT_EQ(Contents(Output), Yesterday);
        EXPECT_FALSE(FakeWin::EntryExists(Part));
        EXPECT_EQ(StandardOutput(), before);
        EXPECT_TRUE(StandardError().ends_with(
            "tamblewickc: the list 'C:\\Lists\\out.txt' could not be written; check the free space\n"));
    }
}

TEST_F(ListCommandFaults, TheDiskIsFull) {
    FakeWin::FailWritesAfter(Part, 10);
    EXPECT_EQ(RunList(), ExitCode::NotWritten);
    EXPECT_EQ(StandardError(),
              "tamblewickc: the list 'C:\\Lists\\out.txt' could not be written; check the free space\n");
    ExpectNothingWritten();
}

TEST_F(ListCommandFaults, ClosingFails) {
    FakeWin::Fail(Call::CloseFile, ERROR_DISK_FULL);
    EXPECT_EQ(RunList(), ExitCode::NotWritten);
    EXPECT_EQ(StandardError(),
              "tamblewickc: the list 'C:\\Lists\\out.txt' could not be written; check the free space\n");
    ExpectNothingWritten();
}

TEST_F(ListCommandFaults, MovingFails) {
    FakeWin::Fail(Call::MoveFileExW, ERROR_SHARING_VIOLATION);
    EXPECT_EQ(RunList(), ExitCode::NotWritten);
    EXPECT_EQ(StandardError(),
              "tamblewickc: the list 'C:\\Lists\\out.txt' cannot be replaced; check that it is not open or "
              "read-only\n");
    ExpectNothingWritten();
}

TEST_F(ListCommandFaults, AReadOnlyListIsNotReplaced) {
    FakeWin::SetAttributes(Output, FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(RunList(), ExitCode::NotWritten);
    ExpectNothingWritten();
}

TEST_F(ListCommandFaults, TheStandardOutputIsFull) {
    FakeWin::FailOn(Call::WriteFile, L"standard output", ERROR_DISK_FULL);
    EXPECT_EQ(RunList({L"-o", L"-"}), ExitCode::NotWritten);
    EXPECT_EQ(StandardError(), "tamblewickc: the standard output could not be written\n");
}

TEST_F(ListCommandFaults, TheStandardOutputCannotBeClosed) {
    FakeWin::FailOn(Call::CloseFile, L"standard output", ERROR_DISK_FULL);
    EXPECT_EQ(RunList({L"-o", L"-"}), ExitCode::NotWritten);
    EXPECT_EQ(StandardError(), "tamblewickc: the standard output could not be written\n");
}

TEST_F(ListCommandFaults, ThereIsNoStandardOutput) {
    FakeWin::CloseStandardOutput();
    EXPECT_EQ(RunList({L"-o", L"-"}), ExitCode::NotWritten);
    EXPECT_EQ(StandardError(), "tamblewickc: the standard output could not be written\n");
}

TEST_F(ListCommandFaults, TheNameOfTheListCannotBePrinted) {
    FakeWin::FailOn(Call::WriteFile, L"standard output", ERROR_DISK_FULL);
    EXPECT_EQ(RunList(), ExitCode::NotWritten);
    EXPECT_EQ(Contents(Output), Today);
}

// The calls during which Ctrl+C is pressed, each at each of its uses.
TEST_F(ListCommandFaults, AnInterruptAtAnyMomentLeavesTheListOfYesterday) {
    constexpr std::array Calls = {Call::GetFullPathNameW, Call::GetFileAttributesExW,
                                  Call::FindFirstFileExW, Call::FindNextFileW,
                                  Call::FindClose,        Call::OpenFile,
                                  Call::WriteFile,        Call::CloseFile};
    std::array<int, Calls.size()> uses;
    FakeWin::SetTickStep(100);
    ASSERT_EQ(RunList({L"-q"}), ExitCode::Complete);
    for (size_t i = 0; i < Calls.size(); ++i)
        uses[i] = FakeWin::Uses(Calls[i]);
    for (size_t i = 0; i < Calls.size(); ++i) {
        EXPECT_GT(uses[i], 0) << NameOf(Calls[i]);
        for (int use = 1; use <= uses[i]; ++use) {
            FakeWin::AddFile(Output, Yesterday);
            Console::CatchInterrupts();
            FakeWin::AtUse(Calls[i], use, [] { FakeWin::SendConsoleEvent(CTRL_C_EVENT); });
            EXPECT_EQ(RunList({L"-q"}), ExitCode::Cancelled) << NameOf(Calls[i]) << " " << use;
            ExpectNothingWritten();
        }
    }
}

TEST_F(ListCommandFaults, AnInterruptWhileTheListIsMovedComesTooLate) {
    FakeWin::AtUse(Call::MoveFileExW, 1, [] { FakeWin::SendConsoleEvent(CTRL_C_EVENT); });
    EXPECT_EQ(RunList(), ExitCode::Complete);
    EXPECT_EQ(Contents(Output), Today);
}

TEST_F(ListCommandFaults, AnInterruptHasNoMessage) {
    FakeWin::SendConsoleEvent(CTRL_C_EVENT);
    EXPECT_EQ(RunList(), ExitCode::Cancelled);
    EXPECT_EQ(StandardError(), "");
    ExpectNothingWritten();
}

}  // namespace
