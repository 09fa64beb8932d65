#include <atomic>
#include <functional>
#include <future>
#include <typeinfo>
#include <utility>

#include "JobFixture.h"
#include "winlib/Win32Error.h"

using FakeWin::Call;
using JobTest::Folder;
using JobTest::MakePreset;

namespace {

using ListMakerWithUIErrors = JobTest::Fixture;

constexpr wchar_t Missing[] = L"C:\\missing";
constexpr wchar_t MissingMessage[] =
    L"The folder 'C:\\missing' does not exist or cannot be accessed by the application.\n"
    L"The listing proccess will be cancelled.";

TEST_F(ListMakerWithUIErrors, StandOnTheDialogUnderItsTitle) {
    HWND shown = nullptr;
    FakeWin::OnDialogShown(IDD_PROGRESS, [&](HWND dialog) {
        shown = dialog;
        SetWindowTextW(dialog, L"A title");
    });
    TestJob job(owner, MakePreset(), Missing);
    job.AtTheBeginning = [] { WaitForDialog(); };
    EXPECT_TRUE(job.Start());
    const std::vector<FakeWin::MessageBoxCall> boxes = FakeWin::MessageBoxes();
    ASSERT_EQ(boxes.size(), 1u);
    EXPECT_EQ(boxes[0].owner, shown);
    EXPECT_TRUE(boxes[0].ownerExisted);
    EXPECT_EQ(boxes[0].text, MissingMessage);
    EXPECT_EQ(boxes[0].caption, L"A title");
    EXPECT_EQ(boxes[0].type, 0x10u);
    EXPECT_NE(boxes[0].thread, std::this_thread::get_id());
    EXPECT_TRUE(FakeWin::WrittenFiles().empty());
    EXPECT_TRUE(FakeWin::ShellExecutions().empty());
}

TEST_F(ListMakerWithUIErrors, PostTheEndMessageTwice) {
    TestJob job(owner, MakePreset(), Missing);
    job.AtTheBeginning = [] { WaitForDialog(); };
    EXPECT_TRUE(job.Start());
    EXPECT_TRUE(FakeWin::WaitForPosted(owner, WM_APP, 2));
    EXPECT_EQ(EndMessages(), 2);
}

TEST_F(ListMakerWithUIErrors, KeepTheDialogWhileTheirBoxIsUp) {
    TestJob job(owner, MakePreset(), Missing);
    FakeWin::OnMessageBox([&](const FakeWin::MessageBoxCall&) {
        EXPECT_FALSE(job.IsCancelled()) << "the dialog is taken";
        EXPECT_EQ(EndMessages(), 0);
        return IDOK;
    });
    job.AtTheBeginning = [&] {
        EXPECT_TRUE(FakeWin::Click(WaitForDialog(), IDC_PROGRESS_CANCEL));
        EXPECT_TRUE(job.IsCancelled());
    };
    EXPECT_TRUE(job.Start());
    EXPECT_EQ(FakeWin::MessageBoxes().size(), 1u);
}

void ExpectBoxOnTheOwner(HWND owner) {
    const std::vector<FakeWin::MessageBoxCall> boxes = FakeWin::MessageBoxes();
    ASSERT_EQ(boxes.size(), 1u);
    EXPECT_EQ(boxes[0].owner, owner);
    EXPECT_EQ(boxes[0].text, MissingMessage);
    EXPECT_EQ(boxes[0].caption, L"Tamblewick");
    EXPECT_EQ(boxes[0].type, 0x10u);
}

TEST_F(ListMakerWithUIErrors, StandOnTheOwnerInTheBackground) {
    ClickWhenShown(IDC_PROGRESS_BACKGROUND);
    std::promise<void> go;
    {
        TestJob job(owner, MakePreset(), Missing);
        job.AtTheBeginning = [start = go.get_future().share()] { start.wait(); };
        EXPECT_FALSE(job.Start());
        go.set_value();
    }
    ExpectBoxOnTheOwner(owner);
    EXPECT_EQ(EndMessages(), 2);
}

// Goes away when it is asked for its title.
WNDPROC dialogProcedure = nullptr;
LRESULT CALLBACK VanishingProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_GETTEXT)
        DestroyWindow(window);
    return CallWindowProcW(dialogProcedure, window, message, wParam, lParam);
}

TEST_F(ListMakerWithUIErrors, StandOnTheOwnerIfTheDialogGoesInTheSameMoment) {
    FakeWin::OnDialogShown(IDD_PROGRESS, [](HWND dialog) {
        dialogProcedure = reinterpret_cast<WNDPROC>(
            SetWindowLongPtrW(dialog, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(VanishingProcedure)));
    });
    {
        TestJob job(owner, MakePreset(), Missing);
        job.AtTheBeginning = [] { WaitForDialog(); };
        EXPECT_FALSE(job.Start());
    }
    const std::vector<FakeWin::MessageBoxCall> boxes = FakeWin::MessageBoxes();
    ASSERT_EQ(boxes.size(), 2u);
    EXPECT_FALSE(boxes[0].ownerExisted);
    EXPECT_EQ(boxes[1].owner, owner);
    EXPECT_EQ(boxes[1].text, MissingMessage);
    EXPECT_EQ(boxes[1].caption, L"Tamblewick");
    EXPECT_EQ(EndMessages(), 2);
}

TEST_F(ListMakerWithUIErrors, StandAloneInTheBackgroundWithoutAnOwner) {
    ClickWhenShown(IDC_PROGRESS_BACKGROUND);
    std::promise<void> go;
    {
        TestJob job(nullptr, MakePreset(), Missing);
        job.AtTheBeginning = [start = go.get_future().share()] { start.wait(); };
        EXPECT_FALSE(job.Start());
        go.set_value();
    }
    ExpectBoxOnTheOwner(nullptr);
    EXPECT_EQ(FakeWin::Uses(Call::PostMessageW), 0);
}

TEST_F(ListMakerWithUIErrors, StandOnTheOwnerIfThereNeverWasADialog) {
    FakeWin::FailNth(Call::DialogBoxParamW, 1, ERROR_NOT_ENOUGH_MEMORY);
    {
        ListMakerWithUI job(owner, MakePreset(), Missing);
        EXPECT_THROW(job.Start(), WinLib::Win32Error);
    }
    ExpectBoxOnTheOwner(owner);
    EXPECT_EQ(EndMessages(), 2);
}

TEST_F(ListMakerWithUIErrors, AppearOnTheOwnerIfTheBoxOnTheDialogFails) {
    for (const int result : {0, -1}) {
        SCOPED_TRACE(result);
        FakeWin::SetMessageBoxFailure(result);
        FakeWin::FailNth(Call::MessageBoxW, 1, ERROR_NOT_ENOUGH_MEMORY);
        const size_t before = FakeWin::MessageBoxes().size();
        TestJob job(owner, MakePreset(), Missing);
        job.AtTheBeginning = [] { WaitForDialog(); };
        EXPECT_TRUE(job.Start());
        const std::vector<FakeWin::MessageBoxCall> boxes = FakeWin::MessageBoxes();
        ASSERT_EQ(boxes.size(), before + 1) << "the failed one does not count";
        EXPECT_EQ(boxes.back().owner, owner);
        EXPECT_EQ(boxes.back().text, MissingMessage);
        EXPECT_EQ(boxes.back().caption, L"Tamblewick");
    }
}

// Runs once, on the thread of the dialog, before the dialog is created.
std::function<void()> beforeTheDialog;

// Being disabled is the last that happens to the owner before the dialog is created.
LRESULT CALLBACK HoldingProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_ENABLE && wParam == FALSE && beforeTheDialog)
        std::exchange(beforeTheDialog, nullptr)();
    return DefWindowProcW(window, message, wParam, lParam);
}

// An error that comes while the dialog's thread is about to create the dialog.
struct EarlyErrors : ListMakerWithUIErrors {
    EarlyErrors() : holding(FakeWin::CreatePlainWindow(HoldingProcedure)) {}
    ~EarlyErrors() override { DestroyWindow(holding); }

    // Starts the job. next runs before the dialog is created, when the worker has an error to show and had
    // time to do so.
    void Start(TestJob& job, const std::function<void()>& next) {
        std::atomic<bool> failed = false;
        job.AtTheError = [&] { failed = true; };
        beforeTheDialog = [&] {
            while (!failed)
                std::this_thread::yield();
            for (int turn = 0; turn < 1000; ++turn)
                std::this_thread::yield();
            next();
        };
        job.Start();
    }

    const HWND holding;
};

TEST_F(EarlyErrors, WaitForTheDialog) {
    HWND shown = nullptr;
    FakeWin::OnDialogShown(IDD_PROGRESS, [&](HWND dialog) { shown = dialog; });
    for (size_t i = 1; i <= 100 && !HasFailure(); ++i) {
        TestJob job(holding, MakePreset(), Missing);
        Start(job, [] {});
        EXPECT_TRUE(job.IsFinished());
        const std::vector<FakeWin::MessageBoxCall> boxes = FakeWin::MessageBoxes();
        ASSERT_EQ(boxes.size(), i);
        EXPECT_EQ(boxes.back().owner, shown);
        EXPECT_TRUE(boxes.back().ownerExisted);
        EXPECT_EQ(boxes.back().caption, L"Tamblewick");
        EXPECT_EQ(boxes.back().text, MissingMessage);
    }
}

TEST_F(EarlyErrors, AppearOnTheOwnerIfTheDialogCannotBeCreated) {
    {
        TestJob job(holding, MakePreset(), Missing);
        EXPECT_THROW(Start(job, [] { FakeWin::UndefineDialog(IDD_PROGRESS); }), WinLib::Win32Error);
    }
    ExpectBoxOnTheOwner(holding);
}

TEST_F(EarlyErrors, AppearOnTheOwnerIfAnExceptionEndsTheCreation) {
    {
        TestJob job(holding, MakePreset(), Missing);
        EXPECT_THROW(Start(job, [] { throw std::bad_cast(); }), std::bad_cast);
    }
    ExpectBoxOnTheOwner(holding);
    EXPECT_TRUE(IsWindowEnabled(holding));
}

TEST_F(ListMakerWithUIErrors, DelayTheReturnOfStartUntilTheyAreAnswered) {
    FakeWin::HoldMessageBoxes();
    TestJob job(owner, MakePreset(), Missing);
    job.AtTheBeginning = [] { WaitForDialog(); };
    std::atomic<bool> returned = false;
    std::thread user([&] {
        EXPECT_TRUE(FakeWin::WaitForMessageBox());
        const HWND dialog = WaitForDialog();
        EndDialog(dialog, 0);
        EXPECT_TRUE(FakeWin::WaitForDestroyed(dialog));
        const size_t polls = FakeWin::Sleeps().size();
        while (!returned && FakeWin::Sleeps().size() < polls + 103)
            std::this_thread::yield();
        EXPECT_FALSE(returned);
        EXPECT_EQ(FakeWin::Sleeps().back(), 25u);
        FakeWin::ReleaseMessageBox();
    });
    EXPECT_FALSE(job.Start());
    returned = true;
    user.join();
    EXPECT_TRUE(FakeWin::WaitForPosted(owner, WM_APP, 2));
}

TEST_F(ListMakerWithUIErrors, CanBeAnsweredWhileTheOwnerWaitsForTheJob) {
    ClickWhenShown(IDC_PROGRESS_BACKGROUND);
    // As a box does when it goes, whatever it did when it appeared.
    FakeWin::OnMessageBox([](const FakeWin::MessageBoxCall& box) {
        SendMessageW(box.owner, WM_CANCELMODE, 0, 0);
        return IDOK;
    });
    std::promise<void> go;
    {
        ListMakerWithUI job(owner, MakePreset(), Folder);
        FakeWin::OnShellExecute([&, start = go.get_future().share()](const FakeWin::ShellExecution&) {
            start.wait();
            job.OnError(L"late");
        });
        EXPECT_FALSE(job.Start());
        go.set_value();
    }
    ASSERT_EQ(FakeWin::MessageBoxes().size(), 1u);
    EXPECT_EQ(FakeWin::MessageBoxes()[0].text, L"late");
    EXPECT_EQ(EndMessages(), 2);
}

}  // namespace
