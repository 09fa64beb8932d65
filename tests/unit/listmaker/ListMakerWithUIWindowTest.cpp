// The job with the real dialog.
#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <future>
#include <utility>

#include "TestJob.h"
#include "resources/resource.h"
#include "support/TempFolder.h"
#include "support/ui/CommonControls.h"
#include "support/ui/DismissModal.h"
#include "support/ui/MessageBoxAnswerer.h"
#include "winlib/WindowText.h"

#include <commctrl.h>

namespace {

// Runs once, on the thread of the dialog, before the dialog is created.
std::function<void()> beforeTheDialog;

// Being disabled is the last that happens to the owner before the dialog is created.
LRESULT CALLBACK OwnerProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_ENABLE && wParam == FALSE && beforeTheDialog)
        std::exchange(beforeTheDialog, nullptr)();
    return DefWindowProcW(window, message, wParam, lParam);
}

struct ListMakerWithUIWindow : testing::Test {
    ListMakerWithUIWindow() : owner(MakeOwner()) {
        folder.AddFile(L"Photos\\inside.txt", 1);
        folder.AddFolder(L"Lists");
    }
    ~ListMakerWithUIWindow() override {
        beforeTheDialog = nullptr;
        DestroyWindow(owner);
    }

    static HWND MakeOwner() {
        Ui::InitCommonControls();
        const HWND window = CreateWindowExW(0, L"STATIC", L"Owner", WS_POPUP | WS_VISIBLE, 0, 0, 200, 100,
                                            nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
        SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(OwnerProcedure));
        return window;
    }

    Preset MakePreset() const { return MakeJobPreset(folder.Path(L"Lists"), OpenMethod::Nothing); }
    bool ListExists() const { return folder.Exists(L"Lists\\List of Photos.txt"); }

    // How many end messages wait in the queue of this thread.
    int TakeEndMessages() const {
        int count = 0;
        MSG message;
        while (PeekMessageW(&message, owner, WM_APP, WM_APP, PM_REMOVE)) {
            EXPECT_EQ(message.wParam, 0u);
            EXPECT_EQ(message.lParam, 0);
            count++;
        }
        return count;
    }

    const TestSupport::TempFolder folder;
    const HWND owner;
};

void Press(HWND dialog, int id) {
    SendMessageW(GetDlgItem(dialog, id), BM_CLICK, 0, 0);
}

std::wstring LineOf(HWND dialog, int id) {
    return WinLib::GetWindowText(GetDlgItem(dialog, id));
}

TEST_F(ListMakerWithUIWindow, ClosesByItselfAtTheEnd) {
    ListMakerWithUI job(owner, MakePreset(), folder.Path(L"Photos"));
    EXPECT_TRUE(job.Start());
    EXPECT_TRUE(job.IsFinished());
    EXPECT_TRUE(ListExists());
    EXPECT_TRUE(IsWindowEnabled(owner));
}

TEST_F(ListMakerWithUIWindow, ClosesAThousandTimesIfItsJobEndsBeforeItExists) {
    folder.AddFolder(L"Empty");
    for (int i = 0; i < 1000 && !HasFailure(); ++i) {
        {
            ListMakerWithUI job(owner, MakePreset(), folder.Path(L"Empty"));
            beforeTheDialog = [&] {
                while (!job.IsFinished())
                    Sleep(1);
            };
            EXPECT_TRUE(job.Start()) << i;
        }
        EXPECT_EQ(TakeEndMessages(), 1) << i;
    }
}

TEST_F(ListMakerWithUIWindow, ShowsWhatTheWorkerDoes) {
    std::promise<HWND> shown;
    const Ui::DismissModal user([&](HWND dialog) { shown.set_value(dialog); });
    TestJob job(owner, MakePreset(), folder.Path(L"Photos"));
    job.AtTheBeginning = [&] {
        const HWND dialog = shown.get_future().get();
        EXPECT_EQ(WinLib::GetWindowText(dialog), L"Tamblewick");
        EXPECT_EQ(GetWindow(dialog, GW_OWNER), owner);
        job.OnProgress(L"one", L"two");
        EXPECT_EQ(LineOf(dialog, IDC_PROGRESS_STATUS_LINE), L"one");
        EXPECT_EQ(LineOf(dialog, IDC_PROGRESS_DETAIL_LINE), L"two");
    };
    EXPECT_TRUE(job.Start());
}

TEST_F(ListMakerWithUIWindow, KeepsTheTextOfACancel) {
    std::promise<HWND> shown;
    const Ui::DismissModal user([&](HWND dialog) {
        Press(dialog, IDC_PROGRESS_CANCEL);
        shown.set_value(dialog);
    });
    TestJob job(owner, MakePreset(), folder.Path(L"Photos"));
    job.AtTheBeginning = [&] {
        const HWND dialog = shown.get_future().get();
        EXPECT_TRUE(job.IsCancelled());
        job.OnProgress(L"one", L"two");
        EXPECT_EQ(LineOf(dialog, IDC_PROGRESS_STATUS_LINE), L"Cancelling...");
        EXPECT_EQ(LineOf(dialog, IDC_PROGRESS_DETAIL_LINE), L"");
    };
    EXPECT_TRUE(job.Start());
    EXPECT_FALSE(ListExists());
}

TEST_F(ListMakerWithUIWindow, GoesOnAloneInTheBackground) {
    const Ui::DismissModal user(IDC_PROGRESS_BACKGROUND);
    std::promise<void> go;
    {
        TestJob job(owner, MakePreset(), folder.Path(L"Photos"));
        job.AtTheBeginning = [start = go.get_future().share()] { start.wait(); };
        EXPECT_FALSE(job.Start());
        EXPECT_FALSE(job.IsFinished());
        EXPECT_FALSE(job.IsCancelled());
        EXPECT_EQ(TakeEndMessages(), 0);
        go.set_value();
    }
    EXPECT_EQ(TakeEndMessages(), 1);
    EXPECT_TRUE(ListExists());
}

// As when this thread destroys the dialog while the worker is about to end it.
TEST_F(ListMakerWithUIWindow, EnablesTheOwnerEvenIfTheDialogIsNotEnded) {
    const Ui::DismissModal user([](HWND dialog) { DestroyWindow(dialog); });
    std::promise<void> go;
    TestJob job(owner, MakePreset(), folder.Path(L"Photos"));
    job.AtTheBeginning = [start = go.get_future().share()] { start.wait(); };
    EXPECT_FALSE(job.Start());
    EXPECT_TRUE(IsWindowEnabled(owner));
    go.set_value();
}

TEST_F(ListMakerWithUIWindow, ReportsAnErrorOnTheDialog) {
    std::promise<HWND> shown;
    const Ui::DismissModal user([&](HWND dialog) { shown.set_value(dialog); });
    const Ui::MessageBoxAnswerer answerer;
    HWND dialog = nullptr;
    TestJob job(owner, MakePreset(), folder.Path(L"missing"));
    job.AtTheBeginning = [&] { dialog = shown.get_future().get(); };
    EXPECT_TRUE(job.Start());
    const std::vector<Ui::SeenDialog> seen = answerer.Seen();
    ASSERT_EQ(seen.size(), 1u);
    EXPECT_EQ(seen[0].caption, L"Tamblewick");
    EXPECT_EQ(seen[0].owner, dialog);
    EXPECT_EQ(seen[0].text, L"The folder '" + folder.Path(L"missing") +
                                L"' does not exist or cannot be accessed by the application.\n"
                                L"The listing proccess will be cancelled.");
}

// What a user sees of the dialog and of the box on it.
struct ShownError {
    bool onDialog = false;
    bool dialogTakesClicks = true;
    bool boxIsActive = false;
    bool buttonHasFocus = false;
};

// Waits until the dialog is there as well, which must not take the keyboard from the box.
ShownError LookAt(HWND box) {
    const HWND dialog = GetWindow(box, GW_OWNER);
    ShownError shown;
    shown.onDialog = GetDlgItem(dialog, IDC_PROGRESS_CANCEL) != nullptr;
    for (int i = 0; i < 2000 && !IsWindowVisible(dialog); ++i)
        Sleep(1);
    shown.dialogTakesClicks = IsWindowEnabled(dialog) != FALSE;
    for (const HWND window : {dialog, box})
        SendMessageW(window, WM_NULL, 0, 0);
    shown.boxIsActive = GetForegroundWindow() == box;
    GUITHREADINFO thread = {};
    thread.cbSize = sizeof(thread);
    GetGUIThreadInfo(GetWindowThreadProcessId(box, nullptr), &thread);
    shown.buttonHasFocus = thread.hwndFocus == GetDlgItem(box, IDOK);
    return shown;
}

TEST_F(ListMakerWithUIWindow, ShowsAnErrorThatComesBeforeTheDialogOnTheDialog) {
    for (int i = 0; i < 50 && !HasFailure(); ++i) {
        SCOPED_TRACE(i);
        const HWND jobOwner = i % 2 == 0 ? owner : nullptr;
        ShownError shown;
        const Ui::MessageBoxAnswerer answerer([&](HWND box) {
            shown = LookAt(box);
            return true;
        });
        std::atomic<bool> failed = false;
        TestJob job(jobOwner, MakePreset(), folder.Path(L"missing"));
        job.AtTheError = [&] { failed = true; };
        beforeTheDialog = [&] {
            while (!failed)
                Sleep(1);
        };
        EXPECT_TRUE(job.Start());
        const std::vector<Ui::SeenDialog> seen = answerer.Seen();
        ASSERT_EQ(seen.size(), 1u);
        EXPECT_EQ(seen[0].caption, L"Tamblewick");
        EXPECT_TRUE(shown.onDialog);
        EXPECT_FALSE(shown.dialogTakesClicks);
        EXPECT_TRUE(shown.boxIsActive);
        EXPECT_TRUE(shown.buttonHasFocus);
    }
}

// Without this thread's service neither the box nor the job would ever come to an end.
TEST_F(ListMakerWithUIWindow, HasItsErrorAnsweredWhileTheOwnerWaits) {
    for (int i = 0; i < 20 && !HasFailure(); ++i) {
        const Ui::DismissModal user(IDC_PROGRESS_BACKGROUND);
        const Ui::MessageBoxAnswerer answerer;
        std::promise<void> go;
        {
            TestJob job(owner, MakePreset(), folder.Path(L"missing"));
            job.AtTheBeginning = [start = go.get_future().share()] { start.wait(); };
            EXPECT_FALSE(job.Start());
            go.set_value();
        }
        const std::vector<Ui::SeenDialog> seen = answerer.Seen();
        ASSERT_EQ(seen.size(), 1u);
        EXPECT_EQ(seen[0].owner, owner);
        EXPECT_EQ(TakeEndMessages(), 2);
    }
}

}  // namespace
