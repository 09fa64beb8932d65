#include "listmaker/OpenList.h"

#include <gtest/gtest.h>

#include "FakeWin.h"
#include "settings/Preset.h"

using FakeWin::ShellExecution;

namespace {

const std::wstring List = L"C:\\My Lists\\List of Photos.txt";

Preset MakePreset(OpenMethod method, const std::wstring& program = L"") {
    Preset preset(L"test");
    preset.Get(Opening::OpenMethod) = method;
    preset.Get(Opening::CustomProgramPath) = program;
    return preset;
}

TEST(OpenList, OpensTheQuotedListWithItsViewer) {
    OpenList(MakePreset(OpenMethod::Default, L"C:\\unused.exe"), List);
    const std::vector<ShellExecution> starts = FakeWin::ShellExecutions();
    ASSERT_EQ(starts.size(), 1u);
    EXPECT_EQ(starts[0].file, L"\"C:\\My Lists\\List of Photos.txt\"");
    EXPECT_EQ(starts[0].parameters, std::nullopt);
    EXPECT_EQ(starts[0].directory, std::nullopt);
}

TEST(OpenList, OpensTheQuotedListWithTheQuotedProgram) {
    OpenList(MakePreset(OpenMethod::Custom, L"C:\\Program Files\\My Viewer\\viewer.exe"), List);
    const std::vector<ShellExecution> starts = FakeWin::ShellExecutions();
    ASSERT_EQ(starts.size(), 1u);
    EXPECT_EQ(starts[0].file, L"\"C:\\Program Files\\My Viewer\\viewer.exe\"");
    EXPECT_EQ(starts[0].parameters, L"\"C:\\My Lists\\List of Photos.txt\"");
    EXPECT_EQ(starts[0].directory, std::nullopt);
}

TEST(OpenList, QuotesEvenAnEmptyProgram) {
    OpenList(MakePreset(OpenMethod::Custom), List);
    const std::vector<ShellExecution> starts = FakeWin::ShellExecutions();
    ASSERT_EQ(starts.size(), 1u);
    EXPECT_EQ(starts[0].file, L"\"\"");
}

TEST(OpenList, DoesNothingForAnyOtherMethod) {
    OpenList(MakePreset(OpenMethod::Nothing, L"C:\\unused.exe"), List);
    OpenList(MakePreset(static_cast<OpenMethod>(3), L"C:\\unused.exe"), List);
    EXPECT_TRUE(FakeWin::ShellExecutions().empty());
}

TEST(OpenList, PassesOverAFailureInSilence) {
    FakeWin::Fail(FakeWin::Call::ShellExecuteExW, ERROR_FILE_NOT_FOUND);
    OpenList(MakePreset(OpenMethod::Default), List);
    OpenList(MakePreset(OpenMethod::Custom, L"C:\\missing.exe"), List);
    EXPECT_EQ(FakeWin::Uses(FakeWin::Call::ShellExecuteExW), 2);
    EXPECT_EQ(FakeWin::Uses(FakeWin::Call::MessageBoxW), 0);
}

}  // namespace
