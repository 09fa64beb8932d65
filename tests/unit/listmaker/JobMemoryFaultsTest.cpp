// Jobs that run out of memory: within the scan they end without a list and without a message, while the list
// is written they end the process.
#include <gtest/gtest.h>

#include <functional>
#include <optional>

#include "FailingJob.h"
#include "scanner/Result.h"
#include "support/native/ScarceMemory.h"

using FailingJob::Before;
using FailingJob::Outcome;

namespace {

class HungryJob final : public ListMaker {
public:
    HungryJob() : ListMaker(FailingJob::MakePreset(), FailingJob::Folder) {}
    ~HungryJob() override { Join(); }

    void Run() {
        Start();
        Join();
    }

    void OnProgress(const std::wstring& status, const std::wstring&) override {
        if (status == L"Creating document...")
            BehindTheScan();
    }
    void OnError(const std::wstring&) override { ++Errors; }

    // On the worker.
    std::function<void()> BeforeTheScan = [] {};
    std::function<void()> BehindTheScan = [] {};
    std::function<void()> AtTheEnd = [] {};

    int Errors = 0;

protected:
    void Prepare() override { BeforeTheScan(); }
    void Finish() override {
        AtTheEnd();
        ListMaker::Finish();
    }
};

struct Span {
    int begin;
    int end;
};

// The allocations of the scan, counted from where the worker begins. Before them the result takes its own and
// after them the status does, which nothing guards.
Span AllocationsOfTheScan() {
    const long live = ScarceMemory::Live();
    const Scanner::Result result;
    const long ofTheResult = ScarceMemory::Live() - live;

    long begin = 0;
    long end = 0;
    HungryJob job;
    job.BeforeTheScan = [&] { begin = ScarceMemory::Made(); };
    job.BehindTheScan = [&] { end = ScarceMemory::Made(); };
    job.Run();
    return {static_cast<int>(ofTheResult), static_cast<int>(end - begin - 1)};
}

TEST(JobMemory, LacksForTheScanAndThenThereIsNoListAndNoWord) {
    FailingJob::Prepare();
    const Span scan = AllocationsOfTheScan();
    EXPECT_GT(scan.end - scan.begin, 20);
    int failures = 0;
    for (int spared = scan.begin; spared < scan.end; ++spared) {
        SCOPED_TRACE(spared);
        FakeWin::Reset();
        FailingJob::Prepare();
        const Before before;

        HungryJob job;
        std::optional<ScarceMemory> scarce;
        bool thrown = false;
        job.BeforeTheScan = [&] { scarce.emplace(1, spared, 1); };
        job.BehindTheScan = [&] { EXPECT_TRUE(ScarceMemory::HasStruck()); };
        job.AtTheEnd = [&] {
            thrown = ScarceMemory::HasThrown();
            scarce.reset();
        };
        job.Run();

        Outcome outcome;
        // A sort does with less memory what it cannot do with more.
        outcome.listExists = outcome.opened = !thrown;
        FailingJob::Expect(outcome, before);
        EXPECT_TRUE(job.IsFinished());
        EXPECT_EQ(job.Errors, 0);
        EXPECT_EQ(FakeWin::LeftOpen(), "");
        failures += thrown;
    }
    EXPECT_GT(failures, 20);
}

void RunOutWhileWriting() {
    FailingJob::Prepare();
    HungryJob job;
    std::optional<ScarceMemory> scarce;
    job.BehindTheScan = [&] { scarce.emplace(1); };
    job.Run();
}

TEST(JobMemory, LacksForTheListAndEndsTheProcess) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_DEATH(RunOutWhileWriting(), "terminate");
}

}  // namespace
