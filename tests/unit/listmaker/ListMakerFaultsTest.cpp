#include <gtest/gtest.h>

#include <functional>
#include <future>

#include "FakeWin.h"
#include "listmaker/ListMaker.h"

using FakeWin::Call;

namespace {

Preset MakePreset() {
    Preset preset(L"test");
    preset.Get(Saving::SaveLocation) = SaveLocation::Custom;
    preset.Get(Saving::CustomFolderPath) = L"C:\\Lists";
    preset.Get(Opening::OpenMethod) = OpenMethod::Default;
    return preset;
}

class Job : public ListMaker {
public:
    explicit Job(const Preset& source = MakePreset()) : ListMaker(source, L"C:\\Photos") {}
    ~Job() override { Join(); }

    void Run() {
        Start();
        Join();
    }

    void OnProgress(const std::wstring& status, const std::wstring&) override {
        writing_ = writing_ || status == L"Creating document...";
    }
    void OnError(const std::wstring& message) override { Errors.push_back(message); }
    bool IsCancelled() override { return CancelEarly || (CancelLate && writing_); }

    std::vector<std::wstring> Errors;
    bool CancelEarly = false;
    bool CancelLate = false;
    std::function<void()> AtTheBeginning = [] {};

protected:
    void Prepare() override { AtTheBeginning(); }

private:
    bool writing_ = false;
};

struct ListMakerFaults : testing::Test {
    ListMakerFaults() {
        // A death test runs the whole program again, which is the one way that is safe with threads.
        GTEST_FLAG_SET(death_test_style, "threadsafe");
        FakeWin::AddFile(L"C:\\Photos\\inside.txt", 1);
        FakeWin::AddFolder(L"C:\\Lists");
    }
};

constexpr wchar_t List[] = L"C:\\Lists\\List of Photos.txt";

TEST_F(ListMakerFaults, RunPausesBeforeAnythingElse) {
    Job job;
    job.AtTheBeginning = [] { EXPECT_EQ(FakeWin::Sleeps(), std::vector<DWORD>{25}); };
    job.Run();
    EXPECT_EQ(FakeWin::Sleeps(), std::vector<DWORD>{25});
}

TEST_F(ListMakerFaults, ListIsOpened) {
    Job job;
    job.Run();
    ASSERT_EQ(FakeWin::ShellExecutions().size(), 1u);
    EXPECT_EQ(FakeWin::ShellExecutions()[0].file, L"\"C:\\Lists\\List of Photos.txt\"");
    EXPECT_TRUE(FakeWin::EntryExists(List));
    EXPECT_EQ(FakeWin::LeftOpen(), "");
}

TEST_F(ListMakerFaults, EarlyCancelLeavesNoListAndNoMessage) {
    Job job;
    job.CancelEarly = true;
    job.Run();
    EXPECT_TRUE(job.IsFinished());
    EXPECT_FALSE(FakeWin::EntryExists(List));
    EXPECT_TRUE(FakeWin::ShellExecutions().empty());
    EXPECT_TRUE(job.Errors.empty());
}

TEST_F(ListMakerFaults, LateCancelLeavesTheListUnopened) {
    Job job;
    job.CancelLate = true;
    job.Run();
    EXPECT_TRUE(job.IsFinished());
    EXPECT_TRUE(FakeWin::EntryExists(List));
    EXPECT_TRUE(FakeWin::ShellExecutions().empty());
}

TEST_F(ListMakerFaults, FailedScanLeavesNoListAndOneMessage) {
    FakeWin::FailOn(Call::FindFirstFileExW, L"C:\\Photos", ERROR_INVALID_NAME);
    Job job;
    job.Run();
    EXPECT_TRUE(job.IsFinished());
    EXPECT_EQ(job.Errors.size(), 1u);
    EXPECT_TRUE(FakeWin::WrittenFiles().empty());
    EXPECT_TRUE(FakeWin::ShellExecutions().empty());
}

TEST_F(ListMakerFaults, RefusedFoldersAreNotAskedAbout) {
    FakeWin::FailOn(Call::FindFirstFileExW, L"C:\\Photos", ERROR_ACCESS_DENIED);
    Job job;
    job.Run();
    EXPECT_TRUE(job.Errors.empty());
    EXPECT_TRUE(FakeWin::EntryExists(List));
}

TEST_F(ListMakerFaults, ListThatCannotBeOpenedForWritingIsOpenedWithoutAMessage) {
    FakeWin::FailOn(Call::OpenFile, List, ERROR_ACCESS_DENIED);
    Job job;
    job.Run();
    EXPECT_TRUE(job.IsFinished());
    EXPECT_TRUE(job.Errors.empty());
    EXPECT_EQ(FakeWin::ShellExecutions().size(), 1u);
}

TEST_F(ListMakerFaults, ProgramThatDoesNotStartIsPassedOver) {
    FakeWin::Fail(Call::ShellExecuteExW, ERROR_FILE_NOT_FOUND);
    Job job;
    job.Run();
    EXPECT_TRUE(job.IsFinished());
    EXPECT_TRUE(job.Errors.empty());
    EXPECT_EQ(FakeWin::Uses(Call::ShellExecuteExW), 1);
}

TEST_F(ListMakerFaults, SecondStartEndsTheProcess) {
    EXPECT_DEATH(
        {
            Job job;
            job.Start();
            job.Start();
        },
        "terminate");
}

void DestroyOnItsWorker() {
    std::promise<void> started;
    std::promise<void> never;
    auto* job = new Job;
    job->AtTheBeginning = [job, go = started.get_future().share()] {
        go.wait();
        delete job;
    };
    job->Start();
    started.set_value();
    never.get_future().wait();
}

// A thread that waits for itself; ThreadSanitizer ends the process with its own message.
TEST_F(ListMakerFaults, DestructionOnTheWorkerEndsTheProcess) {
    EXPECT_DEATH(DestroyOnItsWorker(), "");
}

TEST_F(ListMakerFaults, ColumnThatCannotBeWrittenEndsTheProcess) {
    Preset preset = MakePreset();
    preset.Get(Columns::FileColumns, 0) = static_cast<FileColumn>(FileColumnCount);
    EXPECT_DEATH(
        {
            Job job(preset);
            job.Run();
        },
        "terminate");
}

}  // namespace
