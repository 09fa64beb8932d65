#include "listmaker/ListMakerWithUI.h"

#include <future>
#include <typeinfo>

#include "JobFixture.h"
#include "winlib/Win32Error.h"

using FakeWin::Call;
using JobTest::Folder;
using JobTest::List;
using JobTest::MakePreset;

namespace {

using ListMakerWithUITest = JobTest::Fixture;

TEST_F(ListMakerWithUITest, ClosesItsDialogByItselfAtTheEnd) {
    ListMakerWithUI job(owner, MakePreset(), Folder);
    EXPECT_TRUE(job.Start());
    EXPECT_TRUE(job.IsFinished());
    EXPECT_TRUE(FakeWin::WaitForPosted(owner, WM_APP));
    EXPECT_EQ(EndMessages(), 1);
    EXPECT_TRUE(FakeWin::EntryExists(List));
    ASSERT_EQ(FakeWin::ShellExecutions().size(), 1u);
    EXPECT_EQ(FakeWin::ShellExecutions()[0].file, L"\"C:\\Lists\\List of Photos.txt\"");
    EXPECT_TRUE(FakeWin::MessageBoxes().empty());
}

TEST_F(ListMakerWithUITest, ShowsWhatTheWorkerDoes) {
    TestJob job(owner, MakePreset(), Folder);
    job.AtTheBeginning = [&] {
        const HWND dialog = WaitForDialog();
        EXPECT_EQ(WinLib::GetWindowText(dialog), L"Tamblewick");
        job.OnProgress(L"one", L"two");
        EXPECT_EQ(LineOf(dialog, IDC_PROGRESS_STATUS_LINE), L"one");
        EXPECT_EQ(LineOf(dialog, IDC_PROGRESS_DETAIL_LINE), L"two");
    };
    job.AtTheDocument = [&] {
        const HWND dialog = WaitForDialog();
        EXPECT_EQ(LineOf(dialog, IDC_PROGRESS_STATUS_LINE), L"Creating document...");
        EXPECT_EQ(LineOf(dialog, IDC_PROGRESS_DETAIL_LINE), List);
    };
    EXPECT_TRUE(job.Start());
}

// The job of the owner below.
ListMaker* watched = nullptr;

// Being disabled is the last that happens to the owner before the dialog comes into being.
LRESULT CALLBACK AwaitingProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_ENABLE && wParam == FALSE)
        while (!watched->IsFinished())
            std::this_thread::yield();
    return DefWindowProcW(window, message, wParam, lParam);
}

TEST_F(ListMakerWithUITest, ClosesAThousandTimesIfItEndsBeforeItsDialogExists) {
    const HWND awaiting = FakeWin::CreatePlainWindow(AwaitingProcedure);
    FakeWin::AddFolder(L"C:\\Empty");
    for (int i = 1; i <= 1000 && !HasFailure(); ++i) {
        ListMakerWithUI job(awaiting, MakePreset(), L"C:\\Empty");
        watched = &job;
        EXPECT_TRUE(job.Start()) << i;
        EXPECT_TRUE(FakeWin::WaitForPosted(awaiting, WM_APP, i));
    }
    DestroyWindow(awaiting);
}

TEST_F(ListMakerWithUITest, EndsAThousandTimesAtAnyMoment) {
    FakeWin::AddFolder(L"C:\\Empty");
    for (int i = 1; i <= 1000 && !HasFailure(); ++i) {
        ListMakerWithUI job(owner, MakePreset(), L"C:\\Empty");
        EXPECT_TRUE(job.Start()) << i;
        EXPECT_TRUE(job.IsFinished()) << i;
        EXPECT_TRUE(FakeWin::WaitForPosted(owner, WM_APP, i));
    }
}

// Whether the job was finished each time that its owner was enabled: at first by the worker, from within its
// call that ends the dialog.
std::vector<bool> finishedWhenEnabled;

LRESULT CALLBACK AskingProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_ENABLE && wParam != FALSE)
        finishedWhenEnabled.push_back(watched->IsFinished());
    return DefWindowProcW(window, message, wParam, lParam);
}

TEST_F(ListMakerWithUITest, IsFinishedBeforeItsDialogEnds) {
    const HWND asking = FakeWin::CreatePlainWindow(AskingProcedure);
    {
        TestJob job(asking, MakePreset(), Folder);
        watched = &job;
        finishedWhenEnabled.clear();
        job.AtTheBeginning = [] { WaitForDialog(); };
        EXPECT_TRUE(job.Start());
    }
    EXPECT_FALSE(finishedWhenEnabled.empty());
    for (const bool finished : finishedWhenEnabled)
        EXPECT_TRUE(finished);
    DestroyWindow(asking);
}

TEST_F(ListMakerWithUITest, GoesOnAloneInTheBackground) {
    std::promise<void> go;
    TestJob job(owner, MakePreset(), Folder);
    job.AtTheBeginning = [&, start = go.get_future().share()] {
        start.wait();
        job.OnProgress(L"one", L"two");
        EXPECT_FALSE(job.IsCancelled());
    };
    ClickWhenShown(IDC_PROGRESS_BACKGROUND);
    EXPECT_FALSE(job.Start());
    EXPECT_EQ(FakeWin::OpenWindows(), 1);
    EXPECT_FALSE(job.IsFinished());
    EXPECT_EQ(EndMessages(), 0);
    go.set_value();
    EXPECT_TRUE(FakeWin::WaitForPosted(owner, WM_APP));
    EXPECT_TRUE(job.IsFinished());
    EXPECT_EQ(EndMessages(), 1);
    EXPECT_TRUE(FakeWin::EntryExists(List));
    EXPECT_EQ(FakeWin::ShellExecutions().size(), 1u);
}

TEST_F(ListMakerWithUITest, EndsWithoutAListWhenCancelled) {
    TestJob job(owner, MakePreset(), Folder);
    job.AtTheBeginning = [&] {
        const HWND dialog = WaitForDialog();
        EXPECT_FALSE(job.IsCancelled());
        EXPECT_TRUE(FakeWin::Click(dialog, IDC_PROGRESS_CANCEL));
        EXPECT_TRUE(job.IsCancelled());
        job.OnProgress(L"one", L"two");
        EXPECT_EQ(LineOf(dialog, IDC_PROGRESS_STATUS_LINE), L"Cancelling...");
        EXPECT_EQ(LineOf(dialog, IDC_PROGRESS_DETAIL_LINE), L"");
        EXPECT_FALSE(FakeWin::Click(dialog, IDC_PROGRESS_CANCEL)) << "once is enough";
    };
    EXPECT_TRUE(job.Start());
    EXPECT_FALSE(FakeWin::EntryExists(List));
    EXPECT_TRUE(FakeWin::ShellExecutions().empty());
    EXPECT_TRUE(FakeWin::MessageBoxes().empty());
}

TEST_F(ListMakerWithUITest, KeepsAListThatWasCancelledWhileItWasWritten) {
    TestJob job(owner, MakePreset(), Folder);
    job.AtTheDocument = [&] { EXPECT_TRUE(FakeWin::Click(WaitForDialog(), IDC_PROGRESS_CANCEL)); };
    EXPECT_TRUE(job.Start());
    EXPECT_TRUE(FakeWin::EntryExists(List));
    EXPECT_TRUE(FakeWin::ShellExecutions().empty());
}

TEST_F(ListMakerWithUITest, ForgetsACancelThatGoesToTheBackground) {
    std::promise<void> go;
    TestJob job(owner, MakePreset(), Folder);
    job.AtTheBeginning = [&, start = go.get_future().share()] {
        start.wait();
        EXPECT_FALSE(job.IsCancelled());
    };
    FakeWin::OnDialogShown(IDD_PROGRESS, [](HWND dialog) {
        EXPECT_TRUE(FakeWin::Click(dialog, IDC_PROGRESS_CANCEL));
        EXPECT_TRUE(FakeWin::Click(dialog, IDC_PROGRESS_BACKGROUND));
    });
    EXPECT_FALSE(job.Start());
    go.set_value();
    EXPECT_TRUE(FakeWin::WaitForPosted(owner, WM_APP));
    EXPECT_TRUE(FakeWin::EntryExists(List));
    EXPECT_EQ(FakeWin::ShellExecutions().size(), 1u);
}

TEST_F(ListMakerWithUITest, PostsNothingWithoutAnOwner) {
    TestJob job(nullptr, MakePreset(), L"C:\\missing");
    job.AtTheBeginning = [&] { EXPECT_EQ(GetWindowLongPtrW(WaitForDialog(), GWLP_HWNDPARENT), 0); };
    EXPECT_TRUE(job.Start());
    EXPECT_EQ(FakeWin::MessageBoxes().size(), 1u);
    EXPECT_EQ(FakeWin::Uses(Call::PostMessageW), 0);
    EXPECT_EQ(EndMessages(), 0);
}

TEST_F(ListMakerWithUITest, DropsProgressAsLongAsTheDialogHasNoWindow) {
    ListMakerWithUI job(owner, MakePreset(), Folder);
    job.OnProgress(L"one", L"two");
    EXPECT_FALSE(job.IsCancelled());
}

TEST_F(ListMakerWithUITest, LeavesAnOwnerDisabledThatWasSoBefore) {
    EnableWindow(owner, FALSE);
    {
        TestJob job(owner, MakePreset(), Folder);
        job.AtTheBeginning = [] { WaitForDialog(); };
        EXPECT_TRUE(job.Start());
    }
    EXPECT_FALSE(IsWindowEnabled(owner));
}

TEST_F(ListMakerWithUITest, IsWaitedForInTheBackground) {
    ClickWhenShown(IDC_PROGRESS_BACKGROUND);
    {
        ListMakerWithUI job(nullptr, MakePreset(), Folder);
        job.Start();
    }
    EXPECT_TRUE(FakeWin::EntryExists(List));
    EXPECT_EQ(FakeWin::ShellExecutions().size(), 1u);
}

TEST_F(ListMakerWithUITest, NeedsNoStart) {
    { ListMakerWithUI job(owner, MakePreset(), Folder); }
    EXPECT_FALSE(FakeWin::EntryExists(List));
    EXPECT_EQ(EndMessages(), 0);
}

TEST_F(ListMakerWithUITest, ListsOnWhenTheDialogCannotBeOpened) {
    FakeWin::FailNth(Call::DialogBoxParamW, 1, ERROR_NOT_ENOUGH_MEMORY);
    {
        ListMakerWithUI job(owner, MakePreset(), Folder);
        try {
            job.Start();
            ADD_FAILURE() << "no exception";
        } catch (const WinLib::Win32Error& error) {
            EXPECT_EQ(error.Code, static_cast<uint32_t>(ERROR_NOT_ENOUGH_MEMORY));
        }
    }
    EXPECT_TRUE(FakeWin::EntryExists(List));
    EXPECT_EQ(EndMessages(), 1);
}

TEST_F(ListMakerWithUITest, AnExceptionOutOfTheDialogTakesItsWindowAlong) {
    std::promise<void> go;
    {
        TestJob job(owner, MakePreset(), Folder);
        job.AtTheBeginning = [start = go.get_future().share()] { start.wait(); };
        FakeWin::OnDialogShown(IDD_PROGRESS, [](HWND) { throw std::bad_cast(); });
        EXPECT_THROW(job.Start(), std::bad_cast);
        EXPECT_EQ(FakeWin::OpenWindows(), 1);
        go.set_value();
    }
    EXPECT_TRUE(FakeWin::EntryExists(List));
    EXPECT_EQ(EndMessages(), 1);
}

}  // namespace
