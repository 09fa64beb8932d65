// When a walk reports and asks, by a clock that only moves when it is set.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "FakeWin.h"
#include "scanner/Scan.h"
#include "unit/scanner/RecordingListener.h"
#include "unit/scanner/TestTree.h"

using namespace Scanner;
using FakeWin::Call;

namespace {

using Names = std::vector<std::wstring>;

const std::wstring Cancelled = L"cancelled?";

std::wstring Scanning(const std::wstring& path) {
    return L"progress: Scanning folders... " + path;
}

class ScanProgress : public testing::Test {
protected:
    ScanProgress() {
        options.recursive = true;
        options.listener = &listener;
        FakeWin::AddFile(L"C:\\Data\\a\\x.txt");
        FakeWin::AddFile(L"C:\\Data\\b\\y.txt");
        FakeWin::AddFile(L"C:\\Data\\c\\z.txt");
    }
    ~ScanProgress() override { EXPECT_EQ(FakeWin::LeftOpen(), ""); }

    bool Run() { return Scan(result, options, L"C:\\Data"); }

    // What was called before the stage after the walk.
    Names CallsOfTheWalk() const {
        Names calls = listener.calls;
        for (size_t i = 0; i < calls.size(); ++i)
            if (calls[i].starts_with(L"progress: Post processing"))
                return Names(calls.begin(), calls.begin() + static_cast<std::ptrdiff_t>(i) - 1);
        return calls;
    }

    RecordingListener listener;
    Options options;
    Result result;
};

}  // namespace

TEST_F(ScanProgress, IsSilentInAShortWalk) {
    EXPECT_TRUE(Run());
    EXPECT_EQ(CallsOfTheWalk(), Names{});
}

TEST_F(ScanProgress, IsSilentForFiftyMilliseconds) {
    FakeWin::SetTickStep(25);
    EXPECT_TRUE(Run());
    // 25 since the start at C:\Data, 50 at a, 75 at b; from there 25 at c.
    EXPECT_EQ(CallsOfTheWalk(), (Names{Scanning(L"C:\\Data\\b"), Cancelled}));
}

TEST_F(ScanProgress, ReportsWhenMoreThanFiftyMillisecondsHavePassed) {
    FakeWin::SetTickStep(51);
    EXPECT_TRUE(Run());
    EXPECT_EQ(CallsOfTheWalk(),
              (Names{Scanning(L"C:\\Data"), Cancelled, Scanning(L"C:\\Data\\a"), Cancelled,
                     Scanning(L"C:\\Data\\b"), Cancelled, Scanning(L"C:\\Data\\c"), Cancelled}));
}

TEST_F(ScanProgress, ReportsNothingAtExactlyFifty) {
    FakeWin::SetTickStep(50);
    FakeWin::RemoveEntry(L"C:\\Data\\a");
    FakeWin::RemoveEntry(L"C:\\Data\\b");
    FakeWin::RemoveEntry(L"C:\\Data\\c");
    EXPECT_TRUE(Run());
    EXPECT_EQ(CallsOfTheWalk(), Names{});
}

TEST_F(ScanProgress, SurvivesTheEndOfTheClock) {
    FakeWin::SetTickCount(0xFFFFFFFF);
    FakeWin::SetTickStep(30);
    EXPECT_TRUE(Run());
    // 30 since the start at C:\Data, where the clock is at 29; 60 at a; from there 30 at b, 60 at c.
    EXPECT_EQ(CallsOfTheWalk(),
              (Names{Scanning(L"C:\\Data\\a"), Cancelled, Scanning(L"C:\\Data\\c"), Cancelled}));
}

TEST_F(ScanProgress, EndsAtOnceWhenCancelled) {
    FakeWin::SetTickStep(51);
    listener.cancelAtQuestion = 2;
    EXPECT_FALSE(Run());
    EXPECT_EQ(listener.calls, (Names{Scanning(L"C:\\Data"), Cancelled, Scanning(L"C:\\Data\\a"), Cancelled}));
    EXPECT_EQ(FakeWin::FindCalls().size(), 2u);
}

TEST_F(ScanProgress, DoesNotEnumerateAFolderThatItIsCancelledIn) {
    FakeWin::SetTickStep(51);
    listener.cancelAtQuestion = 1;
    EXPECT_FALSE(Run());
    EXPECT_EQ(FakeWin::Uses(Call::FindNextFileW), 0);
    EXPECT_EQ(FakeWin::Uses(Call::FindClose), 1);
    EXPECT_TRUE(result.root.folders.empty());
}

TEST_F(ScanProgress, AsksAboutARefusedFolderFirst) {
    FakeWin::SetTickStep(51);
    FakeWin::FailOn(Call::FindFirstFileExW, L"C:\\Data", ERROR_ACCESS_DENIED);
    EXPECT_TRUE(Run());
    EXPECT_EQ(CallsOfTheWalk(), (Names{L"denied: C:\\Data", Scanning(L"C:\\Data"), Cancelled}));
}

TEST_F(ScanProgress, ReadsTheClockOnceForEachFolder) {
    EXPECT_TRUE(Run());
    EXPECT_EQ(FakeWin::Uses(Call::GetTickCount), 5);
}

TEST_F(ScanProgress, ClosesEachFolderBeforeTheNext) {
    EXPECT_TRUE(Run());
    std::vector<Call> calls;
    for (const FakeWin::LoggedCall& logged : FakeWin::Log())
        if (logged.call == Call::FindFirstFileExW || logged.call == Call::FindClose)
            calls.push_back(logged.call);
    ASSERT_EQ(calls.size(), 8u);
    for (size_t i = 0; i < calls.size(); ++i)
        EXPECT_EQ(calls[i], i % 2 == 0 ? Call::FindFirstFileExW : Call::FindClose) << i;
}

TEST_F(ScanProgress, ClosesTheFolderWhenTheListenerThrows) {
    class Throwing : public RecordingListener {
    public:
        void OnProgress(const std::wstring&, const std::wstring&) override { throw std::bad_alloc(); }
    } throwing;
    FakeWin::SetTickStep(51);
    options.listener = &throwing;
    EXPECT_FALSE(Run());
    EXPECT_EQ(FakeWin::Uses(Call::FindClose), 1);
    EXPECT_EQ(throwing.calls, Names{});
}
