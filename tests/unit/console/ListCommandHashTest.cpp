// The command "list" with hashes.
#include "ConsoleRun.h"
#include "winlib/Windows.h"

using Console::Arguments;
using Console::ExitCode;
using Console::RunProgram;
using FakeWin::Call;
using FakeWin::Contents;
using FakeWin::StandardError;
using FakeWin::StandardOutput;

namespace {

// By sha256sum, of five and seven zero bytes.
const std::string HashOfA = "8855508aade16ec573d21e6a485dfd0a7624085c1a14b5ecdd6485de0c6839a4";
const std::string HashOfB = "837885c8f8091aeaeb9ec3c3f85a6ff470a415e610b8ba3e49f9b33c9cf9d619";

struct ListCommandHash : ListFixture {
    // Runs "list --template 0 C:\Data" with more arguments.
    static ExitCode Run(const Arguments& more) {
        Arguments arguments = {L"list", L"--template", L"0", L"C:\\Data"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return RunProgram(arguments);
    }
};

TEST_F(ListCommandHash, Sha256SumGoesToTheStandardOutput) {
    EXPECT_EQ(Run({L"-f", L"sha256sum"}), ExitCode::Complete);
    EXPECT_EQ(StandardOutput(), HashOfB + " *Sub/b.txt\n" + HashOfA + " *a.txt\n");
    EXPECT_EQ(StandardError(), "");
    EXPECT_EQ(FakeWin::LeftOpen(), "");
}

TEST_F(ListCommandHash, TablesHaveHashesIfAskedFor) {
    EXPECT_EQ(RunList({L"-f", L"csv", L"--hash", L"sha256"}), ExitCode::Complete);
    const std::string csv = Contents(Output).value_or("");
    EXPECT_TRUE(
        csv.starts_with("type,path,name,extension,size,attributes,created,modified,accessed,files,folders,"
                        "depth,error,sha256\r\ndirectory,Sub,"));
    EXPECT_NE(csv.find("Z,,,1,," + HashOfB + "\r\nfile,a.txt,"), std::string::npos);
    EXPECT_TRUE(csv.ends_with("Z,,,0,," + HashOfA + "\r\n"));
    EXPECT_EQ(RunList({L"-f", L"jsonl", L"--hash=sha256"}), ExitCode::Complete);
    const std::string json = Contents(Output).value_or("");
    EXPECT_NE(json.find("\"error\":\"\",\"sha256\":\"" + HashOfB + "\"}\n"), std::string::npos);
    EXPECT_TRUE(json.ends_with("\"files\":2,\"unreadable\":0,\"unreadable_files\":0}\n")) << json;
    EXPECT_EQ(FakeWin::LeftOpen(), "");
}

TEST_F(ListCommandHash, FilesAreOpenedOnlyForHashes) {
    EXPECT_EQ(RunList(), ExitCode::Complete);
    EXPECT_EQ(RunList({L"-f", L"jsonl"}), ExitCode::Complete);
    EXPECT_EQ(RunList({L"-f", L"csv"}), ExitCode::Complete);
    EXPECT_EQ(FakeWin::Uses(Call::CreateFileW), 0);
}

TEST_F(ListCommandHash, EachFileIsOpenedOnceToBeReadInOrder) {
    EXPECT_EQ(Run({L"-f", L"sha256sum"}), ExitCode::Complete);
    EXPECT_EQ(FakeWin::Uses(Call::CreateFileW), 2);
    for (const FakeWin::LoggedCall& call : FakeWin::Log())
        if (call.call == Call::CreateFileW)
            EXPECT_EQ(call.detail, static_cast<DWORD>(FILE_FLAG_SEQUENTIAL_SCAN));
}

TEST_F(ListCommandHash, AFileThatCannotBeReadIsNamed) {
    FakeWin::FailOn(Call::CreateFileW, L"C:\\Data\\a.txt", ERROR_ACCESS_DENIED);
    EXPECT_EQ(Run({L"-f", L"sha256sum"}), ExitCode::Incomplete);
    EXPECT_EQ(StandardOutput(), HashOfB + " *Sub/b.txt\n");
    EXPECT_EQ(StandardError(), "tamblewickc: the file 'C:\\Data\\a.txt' could not be read: access denied\n");
}

TEST_F(ListCommandHash, QuietNamesNoFilesAndKeepsTheExitCode) {
    FakeWin::AddFile(L"C:\\Data\\link", 1, FILE_ATTRIBUTE_REPARSE_POINT);
    FakeWin::Fail(Call::CreateFileW, ERROR_ACCESS_DENIED);
    EXPECT_EQ(Run({L"-f", L"sha256sum", L"-q"}), ExitCode::Incomplete);
    EXPECT_EQ(StandardOutput(), "");
    EXPECT_EQ(StandardError(), "");
}

TEST_F(ListCommandHash, OfflineFilesAreNotOpenedAndAreNoFailure) {
    FakeWin::SetAttributes(L"C:\\Data\\a.txt", FILE_ATTRIBUTE_OFFLINE);
    EXPECT_EQ(Run({L"-f", L"csv", L"--hash", L"sha256"}), ExitCode::Complete);
    EXPECT_TRUE(StandardOutput().ends_with("Z,,,0,offline,\r\n")) << StandardOutput();
    EXPECT_EQ(FakeWin::Uses(Call::CreateFileW), 1);
    EXPECT_EQ(StandardError(),
              "tamblewickc: files without a hash, since they are links or not on this computer: 1\n");
}

TEST_F(ListCommandHash, ProgressIsInBytes) {
    FakeWin::AddFile(L"C:\\Data\\large", 600'000);
    FakeWin::SetTickStep(100);
    FakeWin::SetErrorConsole(80);
    EXPECT_EQ(RunList({L"-f", L"sha256sum"}), ExitCode::Complete);
    const std::string shown = StandardError();
    EXPECT_NE(shown.find("\r0 of 600012 bytes: C:\\Data\\Sub\\b.txt"), std::string::npos) << shown;
    EXPECT_NE(shown.find("\r12 of 600012 bytes: C:\\Data\\large"), std::string::npos) << shown;
    EXPECT_NE(shown.find("\r262156 of 600012 bytes: C:\\Data\\large"), std::string::npos) << shown;
    EXPECT_NE(shown.find("\r600012 of 600012 bytes: C:\\Data\\large"), std::string::npos) << shown;
    EXPECT_TRUE(shown.ends_with(" \r")) << shown;
}

TEST_F(ListCommandHash, ProgressIsShownAtMostTenTimesASecond) {
    FakeWin::AddFile(L"C:\\Data\\large", 100 * 262'144);
    FakeWin::SetTickStep(10);
    FakeWin::SetErrorConsole(80);
    EXPECT_EQ(RunList({L"-f", L"sha256sum"}), ExitCode::Complete);
    size_t lines = 0;
    const std::string shown = StandardError();
    for (size_t place = 0; (place = shown.find(" bytes: ", place)) != std::string::npos; ++place)
        ++lines;
    EXPECT_GE(lines, 9u);
    EXPECT_LE(lines, 11u);
}

TEST_F(ListCommandHash, SkippedFilesCountInTheProgress) {
    FakeWin::SetAttributes(L"C:\\Data\\Sub\\b.txt", FILE_ATTRIBUTE_OFFLINE);
    FakeWin::SetTickStep(100);
    EXPECT_EQ(RunList({L"-f", L"sha256sum", L"--progress=always"}), ExitCode::Complete);
    EXPECT_NE(StandardError().find("\r7 of 12 bytes: C:\\Data\\a.txt"), std::string::npos) << StandardError();
}

TEST_F(ListCommandHash, ProgressIsShownWhileTheStandardOutputIsRedirected) {
    FakeWin::SetTickStep(100);
    FakeWin::SetErrorConsole(80);
    EXPECT_EQ(Run({L"-f", L"sha256sum"}), ExitCode::Complete);
    EXPECT_NE(StandardError().find(" bytes: "), std::string::npos);
}

TEST_F(ListCommandHash, ProgressDoesNotMixWithAListOnTheConsole) {
    FakeWin::SetTickStep(100);
    FakeWin::SetErrorConsole(80);
    FakeWin::SetOutputConsole(80);
    EXPECT_EQ(Run({L"-f", L"sha256sum"}), ExitCode::Complete);
    EXPECT_EQ(StandardError().find(" bytes: "), std::string::npos);
}

TEST_F(ListCommandHash, AWarningClearsTheProgress) {
    FakeWin::SetTickStep(100);
    FakeWin::FailOn(Call::ReadFile, L"C:\\Data\\a.txt", 23);
    EXPECT_EQ(RunList({L"-f", L"sha256sum", L"--progress=always"}), ExitCode::Incomplete);
    const std::string shown = StandardError();
    EXPECT_NE(shown.find(" \rtamblewickc: the file 'C:\\Data\\a.txt' could not be read: error 23\n"),
              std::string::npos)
        << shown;
}

}  // namespace
