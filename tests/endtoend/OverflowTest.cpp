// The protection against writing beyond arrays, which all programs are compiled with.
#include <gtest/gtest.h>

#include "endtoend/Program.h"

namespace {

constexpr DWORD EndedByProtection = 0xC0000409;

DWORD ExitCode(const std::wstring& fault) {
    return EndToEnd::Process(EndToEnd::PathBeside(L"overflow.exe"), fault).Wait();
}

TEST(Overflow, OnTheStackEndsTheProgram) {
    EXPECT_EQ(ExitCode(L"stack"), EndedByProtection);
}

TEST(Overflow, OfAStaticArrayEndsTheProgram) {
    EXPECT_EQ(ExitCode(L"array"), EndedByProtection);
}

TEST(Overflow, IsNotReportedWithoutOne) {
    EXPECT_EQ(ExitCode(L""), 0u);
}

TEST(Overflow, GuardDiffersBetweenProcesses) {
    const DWORD first = ExitCode(L"guard");
    EXPECT_NE(first, 0u);
    EXPECT_NE(first, ExitCode(L"guard"));
}

}  // namespace
