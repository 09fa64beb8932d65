// Files that cannot be read, change while they are read, and a system that cannot compute hashes.
#include <array>

#include "../ConsoleRun.h"
#include "winlib/Windows.h"

using Console::ExitCode;
using FakeWin::Call;
using FakeWin::Contents;
using FakeWin::StandardError;
using FakeWin::StandardOutput;

namespace {

constexpr wchar_t A[] = L"C:\\Data\\a.txt";
constexpr wchar_t Large[] = L"C:\\Data\\Sub\\large";

struct FileHasherFaults : ListFixture {
    FileHasherFaults() { FakeWin::AddFile(Large, 600'000); }

    static ExitCode Run() { return RunList({L"-f", L"csv", L"--hash", L"sha256"}); }

    // The field "error" and the hash in the last row, which is that of a.txt.
    static std::string LastCells() {
        const std::string list = Contents(Output).value_or("");
        return list.substr(list.find("Z,,,0,", list.rfind("\r\nfile,a.txt")) + 6);
    }

    static void ExpectNothingWritten() {
        EXPECT_EQ(Contents(Output), Yesterday);
        EXPECT_FALSE(FakeWin::EntryExists(Part));
        EXPECT_EQ(StandardOutput(), "");
        EXPECT_EQ(FakeWin::LeftOpen(), "");
    }
};

// How an error of the file system is reported.
struct Reported {
    DWORD error;
    const char* field;
    const char* message;
};
constexpr std::array<Reported, 6> Reports = {{
    {ERROR_ACCESS_DENIED, "access-denied", "access denied"},
    {ERROR_SHARING_VIOLATION, "in-use", "it is in use by another program"},
    {ERROR_LOCK_VIOLATION, "in-use", "it is in use by another program"},
    {ERROR_FILE_NOT_FOUND, "unreadable", "it does not exist any more"},
    {ERROR_PATH_NOT_FOUND, "unreadable", "it does not exist any more"},
    {1117, "unreadable", "error 1117"},
}};

TEST_F(FileHasherFaults, EachErrorOfAFileIsReported) {
    for (const Call call : {Call::CreateFileW, Call::ReadFile}) {
        for (const Reported& row : Reports) {
            const size_t before = StandardError().size();
            FakeWin::FailOn(call, A, row.error, 1);
            EXPECT_EQ(Run(), ExitCode::Incomplete);
            EXPECT_EQ(LastCells(), row.field + std::string(",\r\n"));
            EXPECT_EQ(StandardError().substr(before),
                      "tamblewickc: the file 'C:\\Data\\a.txt' could not be read: " +
                          std::string(row.message) + "\n");
            EXPECT_EQ(FakeWin::LeftOpen(), "");
        }
    }
}

TEST_F(FileHasherFaults, EachReadThatFailsLeavesTheFileWithoutAHash) {
    ASSERT_EQ(Run(), ExitCode::Complete);
    const std::string whole = *Contents(Output);
    const int reads = FakeWin::Uses(Call::ReadFile);
    ASSERT_GE(reads, 8);
    for (int read = 1; read <= reads; ++read) {
        FakeWin::FailNth(Call::ReadFile, read, 1117);
        EXPECT_EQ(Run(), ExitCode::Incomplete) << read;
        EXPECT_NE(Contents(Output)->find(",unreadable,\r\n"), std::string::npos) << read;
        EXPECT_EQ(FakeWin::LeftOpen(), "");
    }
    EXPECT_EQ(Run(), ExitCode::Complete);
    EXPECT_EQ(Contents(Output), whole);
}

TEST_F(FileHasherFaults, EachUseOfASystemThatCannotComputeHashesEndsTheList) {
    constexpr std::array Calls = {Call::BCryptOpenAlgorithmProvider, Call::BCryptCreateHash,
                                  Call::BCryptHashData, Call::BCryptFinishHash};
    std::array<int, Calls.size()> uses;
    ASSERT_EQ(RunList({L"-f", L"csv", L"--hash", L"sha256", L"-q"}), ExitCode::Complete);
    for (size_t i = 0; i < Calls.size(); ++i)
        uses[i] = FakeWin::Uses(Calls[i]);
    for (size_t i = 0; i < Calls.size(); ++i) {
        EXPECT_GT(uses[i], 0) << NameOf(Calls[i]);
        for (int use = 1; use <= uses[i]; ++use) {
            FakeWin::AddFile(Output, Yesterday);
            const size_t before = StandardError().size();
            FakeWin::FailNth(Calls[i], use, 0xC0000017);
            EXPECT_EQ(Run(), ExitCode::NotWritten) << NameOf(Calls[i]) << " " << use;
            EXPECT_EQ(StandardError().substr(before),
                      "tamblewickc: the list was not written, since Windows could not compute SHA-256: error "
                      "0xC0000017\n");
            ExpectNothingWritten();
        }
    }
}

TEST_F(FileHasherFaults, AFileThatIsRemovedAfterTheScan) {
    FakeWin::AtUse(Call::CreateFileW, 1, [] { FakeWin::RemoveEntry(A); });
    EXPECT_EQ(Run(), ExitCode::Incomplete);
    EXPECT_EQ(LastCells(), "unreadable,\r\n");
}

// The hash is that of all contents, and the size that of the scan.
TEST_F(FileHasherFaults, AFileThatGrowsWhileItIsRead) {
    FakeWin::SetTickStep(100);
    FakeWin::AddFile(A, std::string("a"));
    FakeWin::AtUse(Call::CreateFileW, 3, [] { FakeWin::AddFile(A, std::string("ab")); });
    const int readsBefore = 4 + 2;  // of the two files before
    FakeWin::AtUse(Call::ReadFile, readsBefore + 2, [] { FakeWin::AddFile(A, std::string("abc")); });
    EXPECT_EQ(RunList({L"-f", L"csv", L"--hash", L"sha256", L"--progress=always"}), ExitCode::Complete);
    EXPECT_EQ(LastCells(), ",ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad\r\n");
    EXPECT_NE(StandardError().find("\r600008 of 600008 bytes: C:\\Data\\a.txt"), std::string::npos);
    EXPECT_EQ(StandardError().find("600009"), std::string::npos);
}

TEST_F(FileHasherFaults, AnInterruptAtAnyMomentLeavesTheListOfYesterday) {
    constexpr std::array Calls = {Call::CreateFileW, Call::ReadFile, Call::BCryptHashData,
                                  Call::BCryptFinishHash};
    std::array<int, Calls.size()> uses;
    ASSERT_EQ(RunList({L"-f", L"csv", L"--hash", L"sha256", L"-q"}), ExitCode::Complete);
    for (size_t i = 0; i < Calls.size(); ++i)
        uses[i] = FakeWin::Uses(Calls[i]);
    for (size_t i = 0; i < Calls.size(); ++i) {
        for (int use = 1; use <= uses[i]; ++use) {
            FakeWin::AddFile(Output, Yesterday);
            Console::CatchInterrupts();
            FakeWin::AtUse(Calls[i], use, [] { FakeWin::SendConsoleEvent(CTRL_C_EVENT); });
            EXPECT_EQ(Run(), ExitCode::Cancelled) << NameOf(Calls[i]) << " " << use;
            ExpectNothingWritten();
        }
    }
}

TEST_F(FileHasherFaults, AnInterruptIsNoticedAfterABlock) {
    FakeWin::AtUse(Call::ReadFile, 1, [] { FakeWin::SendConsoleEvent(CTRL_C_EVENT); });
    EXPECT_EQ(Run(), ExitCode::Cancelled);
    EXPECT_EQ(FakeWin::Uses(Call::ReadFile), 1);
}

TEST_F(FileHasherFaults, EachWriteOfSumsThatFailsIsReported) {
    for (int i = 0; i < 2000; ++i)
        FakeWin::AddFile(L"C:\\Data\\a file with a long name " + std::to_wstring(i) + L".txt");
    ASSERT_EQ(RunList({L"-f", L"sha256sum"}), ExitCode::Complete);
    const int writes = FakeWin::WritesTo(Part);
    ASSERT_GT(writes, 1);
    for (int write = 1; write <= writes; ++write) {
        FakeWin::AddFile(Output, Yesterday);
        FakeWin::FailNth(Call::WriteFile, write, ERROR_DISK_FULL);
        EXPECT_EQ(RunList({L"-f", L"sha256sum"}), ExitCode::NotWritten) << write;
        EXPECT_EQ(Contents(Output), Yesterday);
        EXPECT_FALSE(FakeWin::EntryExists(Part));
    }
}

}  // namespace
