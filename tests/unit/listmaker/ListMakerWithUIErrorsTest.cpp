#include <atomic>
#include <future>

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

TEST_F(ListMakerWithUIErrors, StandOnTheOwnerAsLongAsTheDialogHasNoWindow) {
    ListMakerWithUI job(owner, MakePreset(), Missing);
    job.OnProgress(L"one", L"two");
    EXPECT_FALSE(job.IsCancelled());
    job.OnError(MissingMessage);
    ExpectBoxOnTheOwner(owner);
    EXPECT_EQ(EndMessages(), 1);
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
