// How the module starts programs for several folders and several choices, without waiting itself and without
// being unloaded meanwhile; with starts, threads and allocations that fail.
#include <gtest/gtest.h>

#include <optional>
#include <thread>

#include "contextmenu/FailingAllocation.h"
#include "contextmenu/FakePrograms.h"
#include "contextmenu/LoadedModule.h"
#include "support/TempFolder.h"
#include "support/TestRegistry.h"

namespace {

using Lines = std::vector<std::wstring>;

HANDLE WINAPI RefuseThread(LPSECURITY_ATTRIBUTES, SIZE_T, LPTHREAD_START_ROUTINE, LPVOID, DWORD, LPDWORD) {
    return nullptr;
}

BOOL WINAPI RefuseModule(DWORD, LPCWSTR, HMODULE*) {
    return FALSE;
}

class StartQueueFaultsTest : public testing::Test {
protected:
    StartQueueFaultsTest() {
        registry_.SetDword(L"Software\\Tamblewick\\aaa", L"Position", 2);
        registry_.SetDword(L"Software\\Tamblewick\\bbb", L"Position", 1);
        for (const wchar_t* name : {L"1", L"2", L"3", L"4"})
            folder_.AddFolder(name);
    }

    // A handler whose menu has been asked for: the presets aaa and bbb and the program's window.
    Com<IContextMenu> NewHandler(const std::vector<std::wstring>& names) const {
        std::vector<std::wstring> folders;
        for (const std::wstring& name : names)
            folders.push_back(folder_.Path(name));
        Com<IContextMenu> handler = module_->NewHandler(folders);
        EXPECT_EQ(QueryMenu(*handler), MAKE_HRESULT(SEVERITY_SUCCESS, 0, 3));
        return handler;
    }

    // Chooses the preset with this offset for these folders.
    HRESULT Choose(UINT_PTR preset, const std::vector<std::wstring>& names) const {
        return Invoke(*NewHandler(names), preset);
    }

    static std::wstring Program() {
        const std::wstring module = ModulePath();
        return L"\"" + module.substr(0, module.rfind(L'.')) + L".exe\"";
    }

    std::wstring Line(const std::wstring& preset, const std::wstring& name) const {
        return Program() + L" \"" + preset + L"\" \"" + folder_.Path(name) + L"\"";
    }

    const TestSupport::TestRegistry registry_;
    const TestSupport::TempFolder folder_;
    std::optional<LoadedModule> module_{std::in_place};
    FakePrograms programs_{module_->Handle()};
};

TEST_F(StartQueueFaultsTest, ProgramsRunOneAfterTheOtherInTheOrderOfTheSelection) {
    EXPECT_EQ(Choose(0, {L"2", L"1", L"3"}), S_OK);
    EXPECT_EQ(programs_.CommandLines(), Lines{Line(L"aaa", L"2")});
    for (size_t i = 0; i < 3; ++i) {
        ASSERT_TRUE(programs_.WaitForStarts(i + 1));
        programs_.End(i);
    }
    EXPECT_TRUE(programs_.WaitForThreads());
    EXPECT_EQ(programs_.CommandLines(), (Lines{Line(L"aaa", L"2"), Line(L"aaa", L"1"), Line(L"aaa", L"3")}));
    EXPECT_EQ(programs_.MostAtOnce(), 1u);
}

TEST_F(StartQueueFaultsTest, SecondChoiceIsAppendedToTheFirst) {
    EXPECT_EQ(Choose(0, {L"1", L"2"}), S_OK);
    EXPECT_EQ(Choose(1, {L"3"}), S_OK);
    EXPECT_EQ(Choose(0, {L"4", L"1"}), S_OK);
    for (size_t i = 0; i < 5; ++i) {
        ASSERT_TRUE(programs_.WaitForStarts(i + 1));
        programs_.End(i);
    }
    EXPECT_TRUE(programs_.WaitForThreads());
    EXPECT_EQ(programs_.CommandLines(), (Lines{Line(L"aaa", L"1"), Line(L"aaa", L"2"), Line(L"bbb", L"3"),
                                               Line(L"aaa", L"4"), Line(L"aaa", L"1")}));
    EXPECT_EQ(programs_.MostAtOnce(), 1u);
    EXPECT_EQ(programs_.Threads(), 1u);
}

TEST_F(StartQueueFaultsTest, ChoiceAfterTheLastProgramHasEndedIsStartedAtOnce) {
    programs_.EndAtOnce();
    for (size_t i = 1; i <= 3; ++i) {
        EXPECT_EQ(Choose(0, {L"1"}), S_OK);
        EXPECT_EQ(programs_.CommandLines().size(), i);
        EXPECT_TRUE(programs_.WaitForThreads());
        EXPECT_EQ(programs_.Threads(), i);
    }
}

TEST_F(StartQueueFaultsTest, ChoicesOfSeveralThreadsKeepTheirOrder) {
    constexpr size_t Choices = 4;
    programs_.EndAtOnce();
    {
        std::vector<std::jthread> threads;
        for (size_t i = 0; i < Choices; ++i)
            threads.emplace_back([&] { EXPECT_EQ(Choose(0, {L"1", L"2", L"3"}), S_OK); });
    }
    EXPECT_TRUE(programs_.WaitForStarts(Choices * 3));
    EXPECT_TRUE(programs_.WaitForThreads());
    const Lines lines = programs_.CommandLines();
    ASSERT_EQ(lines.size(), Choices * 3);
    // A choice's folders follow one another.
    for (size_t i = 0; i < lines.size(); ++i)
        EXPECT_EQ(lines[i], Line(L"aaa", std::to_wstring(i % 3 + 1))) << i;
    EXPECT_EQ(programs_.MostAtOnce(), 0u);
}

TEST_F(StartQueueFaultsTest, TwoThousandFoldersRunOneAtATime) {
    constexpr size_t Count = 2000;
    EXPECT_EQ(Choose(0, std::vector<std::wstring>(Count, L"1")), S_OK);
    EXPECT_EQ(programs_.CommandLines().size(), 1u);
    programs_.EndAtOnce();
    programs_.End(0);
    EXPECT_TRUE(programs_.WaitForStarts(Count));
    EXPECT_TRUE(programs_.WaitForThreads());
    EXPECT_EQ(programs_.CommandLines(), Lines(Count, Line(L"aaa", L"1")));
    EXPECT_EQ(programs_.MostAtOnce(), 1u);
    EXPECT_EQ(programs_.Threads(), 1u);
}

TEST_F(StartQueueFaultsTest, FailedStartsAreSkipped) {
    programs_.FailStart(0);
    programs_.FailStart(2);
    EXPECT_EQ(Choose(0, {L"1", L"2", L"3", L"4"}), S_OK);
    ASSERT_TRUE(programs_.WaitForStarts(2));
    programs_.End(1);
    ASSERT_TRUE(programs_.WaitForStarts(4));
    programs_.End(3);
    EXPECT_TRUE(programs_.WaitForThreads());
    EXPECT_EQ(programs_.CommandLines(),
              (Lines{Line(L"aaa", L"1"), Line(L"aaa", L"2"), Line(L"aaa", L"3"), Line(L"aaa", L"4")}));
    EXPECT_EQ(programs_.MostAtOnce(), 1u);
}

TEST_F(StartQueueFaultsTest, FailedStartOfTheOnlyFolderIsReported) {
    programs_.FailStart(0);
    EXPECT_EQ(Choose(0, {L"1"}), E_FAIL);
    EXPECT_EQ(programs_.Threads(), 0u);
    EXPECT_EQ(module_->CanUnload(), S_OK);
}

TEST_F(StartQueueFaultsTest, WindowOpensBesideARunningList) {
    programs_.FailStart(2);
    EXPECT_EQ(Choose(0, {L"1", L"2"}), S_OK);
    EXPECT_EQ(Choose(2, {L"3", L"4"}), S_OK);
    EXPECT_EQ(Choose(2, {L"3"}), E_FAIL);
    EXPECT_EQ(programs_.CommandLines(), (Lines{Line(L"aaa", L"1"), Program(), Program()}));
    programs_.EndAtOnce();
    programs_.End(0);
    ASSERT_TRUE(programs_.WaitForStarts(4));
    EXPECT_TRUE(programs_.WaitForThreads());
    EXPECT_EQ(programs_.CommandLines()[3], Line(L"aaa", L"2"));
}

TEST_F(StartQueueFaultsTest, ModuleIsInUseUntilTheLastProgramHasEnded) {
    EXPECT_EQ(Choose(0, {L"1", L"2"}), S_OK);
    EXPECT_EQ(module_->CanUnload(), S_FALSE);
    programs_.End(0);
    ASSERT_TRUE(programs_.WaitForStarts(2));
    EXPECT_EQ(module_->CanUnload(), S_FALSE);
    programs_.End(1);
    EXPECT_TRUE(programs_.WaitForThreads());
    EXPECT_EQ(module_->CanUnload(), S_OK);
}

TEST_F(StartQueueFaultsTest, ModuleStaysWhenItsHostFreesItTooEarly) {
    EXPECT_EQ(Choose(0, {L"1", L"2"}), S_OK);
    module_.reset();
    EXPECT_NE(GetModuleHandleW(ModulePath().c_str()), nullptr);
    programs_.End(0);
    ASSERT_TRUE(programs_.WaitForStarts(2));
    programs_.End(1);
    EXPECT_TRUE(programs_.WaitForThreads());
    EXPECT_EQ(GetModuleHandleW(ModulePath().c_str()), nullptr);
}

TEST_F(StartQueueFaultsTest, MissingThreadIsReportedAndLaterChoicesWork) {
    {
        const ImportHook hook(module_->Handle(), "CreateThread", RefuseThread);
        EXPECT_EQ(Choose(0, {L"1", L"2"}), E_FAIL);
    }
    EXPECT_EQ(module_->CanUnload(), S_OK);
    programs_.End(0);
    programs_.EndAtOnce();
    EXPECT_EQ(Choose(0, {L"3"}), S_OK);
    EXPECT_TRUE(programs_.WaitForThreads());
    EXPECT_EQ(programs_.CommandLines(), (Lines{Line(L"aaa", L"1"), Line(L"aaa", L"3")}));
}

TEST_F(StartQueueFaultsTest, NothingIsStartedIfTheModuleCannotBeKept) {
    const ImportHook hook(module_->Handle(), "GetModuleHandleExW", RefuseModule);
    EXPECT_EQ(Choose(0, {L"1", L"2"}), E_FAIL);
    EXPECT_EQ(programs_.CommandLines(), Lines{});
    EXPECT_EQ(module_->CanUnload(), S_OK);
}

TEST_F(StartQueueFaultsTest, WithoutMemoryNothingIsStarted) {
    programs_.EndAtOnce();
    const Com<IContextMenu> handler = NewHandler({L"1", L"2"});
    bool failed = true;
    for (int number = 1; failed; ++number) {
        const FailingAllocation allocation(module_->Handle(), number);
        const HRESULT result = Invoke(*handler, 0);
        failed = allocation.HasFailed();
        EXPECT_EQ(result, failed ? E_OUTOFMEMORY : S_OK) << number;
        EXPECT_EQ(programs_.CommandLines().empty(), failed) << number;
        EXPECT_TRUE(programs_.WaitForThreads());
    }
    EXPECT_EQ(programs_.CommandLines(), (Lines{Line(L"aaa", L"1"), Line(L"aaa", L"2")}));
}

}  // namespace
