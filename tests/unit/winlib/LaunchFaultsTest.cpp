#include "winlib/Launch.h"

#include <gtest/gtest.h>

#include "FakeWin.h"
#include "winlib/Windows.h"

#include <shellapi.h>

using FakeWin::ShellExecution;
using WinLib::Launch;
using WinLib::QuotePath;

namespace {

// What every start has in common.
void ExpectPlainStart(const ShellExecution& start) {
    EXPECT_EQ(start.size, sizeof(SHELLEXECUTEINFOW));
    EXPECT_EQ(start.mask, 0x4400u);
    EXPECT_EQ(start.owner, nullptr);
    EXPECT_EQ(start.verb, std::nullopt);
    EXPECT_EQ(start.show, 1);
    EXPECT_TRUE(start.othersZero);
}

TEST(QuotePath, PutsOneQuoteOnEitherSide) {
    EXPECT_EQ(QuotePath(L""), L"\"\"");
    EXPECT_EQ(QuotePath(L"C:\\a b"), L"\"C:\\a b\"");
    EXPECT_EQ(QuotePath(L"C:\\a\\"), L"\"C:\\a\\\"");
    EXPECT_EQ(QuotePath(L"\"a\"b"), L"\"\"a\"b\"");
}

TEST(Launch, PassesProgramArgumentsAndDirectory) {
    EXPECT_TRUE(Launch(L"program.exe", L"-a \"b c\"", L"C:\\Data"));
    const std::vector<ShellExecution> starts = FakeWin::ShellExecutions();
    ASSERT_EQ(starts.size(), 1u);
    ExpectPlainStart(starts[0]);
    EXPECT_EQ(starts[0].file, L"program.exe");
    EXPECT_EQ(starts[0].parameters, L"-a \"b c\"");
    EXPECT_EQ(starts[0].directory, L"C:\\Data");
}

TEST(Launch, PassesNothingForEmptyArgumentsAndDirectory) {
    EXPECT_TRUE(Launch(L"program.exe", L"", L""));
    const std::vector<ShellExecution> starts = FakeWin::ShellExecutions();
    ASSERT_EQ(starts.size(), 1u);
    ExpectPlainStart(starts[0]);
    EXPECT_EQ(starts[0].parameters, std::nullopt);
    EXPECT_EQ(starts[0].directory, std::nullopt);
}

TEST(Launch, ReturnsWhetherTheSystemRefused) {
    FakeWin::FailNth(FakeWin::Call::ShellExecuteExW, 1, ERROR_FILE_NOT_FOUND);
    EXPECT_FALSE(Launch(L"program.exe", L"", L""));
    EXPECT_TRUE(Launch(L"program.exe", L"", L""));
}

}  // namespace
