#include "progress/ProgressController.h"

#include <gtest/gtest.h>

#include "DrivenProgress.h"
#include "Worker.h"
#include "resources/resource.h"
#include "winlib/WindowText.h"

using WinLib::GetWindowText;

namespace {

// The results of the dialog.
constexpr INT_PTR Background = 0;
constexpr INT_PTR Finished = 1;

TEST(ProgressController, OpensWithItsTitleAndEmptyLines) {
    DrivenProgress dialog(L"Tamblewick");
    dialog.Run([&] {
        EXPECT_EQ(GetWindowText(dialog.Handle), L"Tamblewick");
        EXPECT_EQ(GetWindowText(dialog.StatusLine), L"");
        EXPECT_EQ(GetWindowText(dialog.DetailLine), L"");
        EXPECT_EQ(SendMessageW(dialog.Bar, PBM_GETPOS, 0, 0), 0);
        EXPECT_FALSE(dialog.IsCancelled());
        EXPECT_TRUE(IsWindowEnabled(dialog.CancelButton));
        EXPECT_TRUE(IsWindowEnabled(dialog.BackgroundButton));
    });
}

// Else an error box of the worker could be on the screen first, and the dialog would take the keyboard from
// it.
TEST(ProgressController, IsOnTheScreenWhenTheWorkerFindsIt) {
    class Watched : public DrivenProgress {
    public:
        using DrivenProgress::DrivenProgress;
        bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override {
            if (message == WM_SHOWWINDOW && wParam != FALSE) {
                Shown = true;
                EXPECT_EQ(Window(), nullptr);
                EXPECT_EQ(GetWindowText(Handle), L"Tamblewick");
            }
            const bool handled = DrivenProgress::OnMessage(message, wParam, lParam, result);
            EXPECT_TRUE(Window() == nullptr || Shown);
            return handled;
        }
        bool Shown = false;
    } dialog(L"Tamblewick");
    dialog.Run([&] { EXPECT_TRUE(IsWindowVisible(dialog.Handle)); });
    EXPECT_TRUE(dialog.Shown);
}

TEST(ProgressController, WaitsForItsWindowUntilItIsCreated) {
    DrivenProgress dialog(L"Tamblewick");
    const Worker worker([&] {
        const HWND window = dialog.WaitForWindow();
        EXPECT_NE(window, nullptr);
        EXPECT_EQ(window, dialog.Window());
        EXPECT_EQ(GetWindowText(window), L"Tamblewick");
        dialog.End();
    });
    EXPECT_EQ(dialog.Run(), Finished);
}

TEST(ProgressController, WaitsInVainForAWindowThatIsNotCreated) {
    DrivenProgress dialog(L"Tamblewick");
    const Worker worker([&] { EXPECT_EQ(dialog.WaitForWindow(), nullptr); });
    dialog.EndCreation();
}

TEST(ProgressController, FindsItsControls) {
    DrivenProgress dialog(L"Tamblewick");
    dialog.Run([&] {
        EXPECT_EQ(dialog.StatusLine, GetDlgItem(dialog.Handle, 1108));
        EXPECT_EQ(dialog.DetailLine, GetDlgItem(dialog.Handle, 1109));
        EXPECT_EQ(dialog.Bar, GetDlgItem(dialog.Handle, 1107));
        EXPECT_EQ(dialog.Marquee, GetDlgItem(dialog.Handle, 1110));
        EXPECT_EQ(dialog.BackgroundButton, GetDlgItem(dialog.Handle, 3));
        EXPECT_EQ(dialog.CancelButton, GetDlgItem(dialog.Handle, 1119));
        EXPECT_EQ(dialog.IconStatic, GetDlgItem(dialog.Handle, -1));
        for (const HWND control : {dialog.StatusLine, dialog.DetailLine, dialog.Bar, dialog.Marquee,
                                   dialog.BackgroundButton, dialog.CancelButton, dialog.IconStatic})
            EXPECT_NE(control, nullptr);
    });
}

TEST(ProgressController, BackgroundClosesItAndCancelsNothing) {
    DrivenProgress dialog(L"Tamblewick");
    EXPECT_EQ(dialog.Run([&] { dialog.Press(IDC_PROGRESS_BACKGROUND); }), Background);
    EXPECT_FALSE(dialog.IsCancelled());
}

TEST(ProgressController, CancelMarksAndWaitsForTheWorker) {
    DrivenProgress dialog(L"Tamblewick");
    EXPECT_EQ(dialog.Run([&] {
        dialog.Report(L"Scanning folders...", L"C:\\Data");
        dialog.Press(IDC_PROGRESS_CANCEL);
        EXPECT_TRUE(dialog.IsCancelled());
        EXPECT_FALSE(IsWindowEnabled(dialog.CancelButton));
        EXPECT_TRUE(IsWindowEnabled(dialog.BackgroundButton));
        EXPECT_EQ(GetWindowText(dialog.StatusLine), L"Cancelling...");
        EXPECT_EQ(GetWindowText(dialog.DetailLine), L"");
    }),
              DrivenProgress::StaysOpen);
    EXPECT_TRUE(dialog.IsCancelled());
}

TEST(ProgressController, CancelPassesTheFocusToBackground) {
    DrivenProgress dialog(L"Tamblewick");
    dialog.Run([&] {
        EXPECT_EQ(GetFocus(), dialog.CancelButton);
        dialog.Press(IDC_PROGRESS_CANCEL);
        EXPECT_EQ(GetFocus(), dialog.BackgroundButton);
    });
}

TEST(ProgressController, CancelCannotBePressedTwice) {
    DrivenProgress dialog(L"Tamblewick");
    dialog.Run([&] {
        dialog.Press(IDC_PROGRESS_CANCEL);
        SetWindowTextW(dialog.StatusLine, L"untouched");
        dialog.Press(IDC_PROGRESS_CANCEL);
        EXPECT_EQ(GetWindowText(dialog.StatusLine), L"untouched");
    });
}

TEST(ProgressController, BackgroundWhileCancellingClosesIt) {
    DrivenProgress dialog(L"Tamblewick");
    EXPECT_EQ(dialog.Run([&] {
        dialog.Press(IDC_PROGRESS_CANCEL);
        dialog.Press(IDC_PROGRESS_BACKGROUND);
    }),
              Background);
    EXPECT_TRUE(dialog.IsCancelled());
}

TEST(ProgressController, TheWorkersEndWhileCancellingClosesIt) {
    DrivenProgress dialog(L"Tamblewick");
    EXPECT_EQ(dialog.Run([&] {
        dialog.Press(IDC_PROGRESS_CANCEL);
        dialog.End();
    }),
              Finished);
}

TEST(ProgressController, ReportsShowInTheLines) {
    DrivenProgress dialog(L"Tamblewick");
    dialog.Run([&] {
        dialog.Report(L"Scanning folders...", L"C:\\Data");
        EXPECT_EQ(GetWindowText(dialog.StatusLine), L"Scanning folders...");
        EXPECT_EQ(GetWindowText(dialog.DetailLine), L"C:\\Data");
        dialog.Report(L"Creating document...", L"");
        EXPECT_EQ(GetWindowText(dialog.StatusLine), L"Creating document...");
        EXPECT_EQ(GetWindowText(dialog.DetailLine), L"");
    });
}

TEST(ProgressController, AReportBehindCancelIsDropped) {
    DrivenProgress dialog(L"Tamblewick");
    dialog.Run([&] {
        dialog.Press(IDC_PROGRESS_CANCEL);
        dialog.Report(L"Scanning folders...", L"C:\\Data");
        EXPECT_EQ(GetWindowText(dialog.StatusLine), L"Cancelling...");
        EXPECT_EQ(GetWindowText(dialog.DetailLine), L"");
    });
}

// Presses "Cancel" in the very moment in which the first line takes its new text.
class CancelOnText : public WinLib::Window::Controller {
public:
    explicit CancelOnText(DrivenProgress& dialog) : dialog_(dialog) {}

    bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override {
        if (message == WM_SETTEXT && !dialog_.IsCancelled())
            dialog_.Press(IDC_PROGRESS_CANCEL);
        return Controller::OnMessage(message, wParam, lParam, result);
    }

private:
    DrivenProgress& dialog_;
};

TEST(ProgressController, ACancelBetweenTheLinesKeepsTheSecond) {
    DrivenProgress dialog(L"Tamblewick");
    CancelOnText user(dialog);
    dialog.Run([&] {
        WinLib::Attach(user, dialog.StatusLine);
        dialog.Report(L"Scanning folders...", L"C:\\Data");
        EXPECT_TRUE(dialog.IsCancelled());
        EXPECT_EQ(GetWindowText(dialog.DetailLine), L"");
    });
}

TEST(ProgressController, AReportWithoutAWindowIsDropped) {
    DrivenProgress dialog(L"Tamblewick");
    EXPECT_EQ(dialog.Window(), nullptr);
    dialog.Report(L"Scanning folders...", L"C:\\Data");
    dialog.Run([&] {
        EXPECT_EQ(dialog.Window(), dialog.Handle);
        EXPECT_EQ(GetWindowText(dialog.StatusLine), L"");
    });
    dialog.Report(L"Scanning folders...", L"C:\\Data");
}

TEST(ProgressController, EnterEscAndCloseLeaveItOpen) {
    DrivenProgress dialog(L"Tamblewick");
    EXPECT_EQ(dialog.Run([&] {
        SendMessageW(dialog.Handle, WM_COMMAND, IDOK, 0);
        SendMessageW(dialog.Handle, WM_COMMAND, IDCANCEL, 0);
        SendMessageW(dialog.Handle, WM_CLOSE, 0, 0);
        EXPECT_TRUE(IsWindow(dialog.Handle));
    }),
              DrivenProgress::StaysOpen);
    EXPECT_FALSE(dialog.IsCancelled());
}

// Any notification of a button but BN_CLICKED.
constexpr WORD OtherCode = 6;

TEST(ProgressController, OnlyAClickOnItsButtonsCounts) {
    DrivenProgress dialog(L"Tamblewick");
    EXPECT_EQ(dialog.Run([&] {
        EXPECT_FALSE(dialog.OnControlCommand(IDC_PROGRESS_BACKGROUND, dialog.BackgroundButton, OtherCode));
        EXPECT_FALSE(dialog.OnControlCommand(IDC_PROGRESS_CANCEL, dialog.CancelButton, OtherCode));
        EXPECT_FALSE(dialog.OnControlCommand(IDC_PROGRESS_STATUS_LINE, dialog.StatusLine, BN_CLICKED));
    }),
              DrivenProgress::StaysOpen);
    EXPECT_FALSE(dialog.IsCancelled());
}

TEST(ProgressController, InheritsTheRuleForOkAndCancel) {
    for (const int id : {IDOK, IDCANCEL}) {
        DrivenProgress dialog(L"Tamblewick");
        EXPECT_EQ(dialog.Run([&] {
            EXPECT_TRUE(dialog.OnControlCommand(static_cast<WORD>(id), dialog.CancelButton, BN_CLICKED));
        }),
                  id == IDOK ? 1 : 0);
    }
}

class CountColorChanges : public WinLib::Window::Controller {
public:
    bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override {
        if (message == WM_SYSCOLORCHANGE)
            ++Count;
        return Controller::OnMessage(message, wParam, lParam, result);
    }

    int Count = 0;
};

TEST(ProgressController, DoesNotTakeChangesOfTheSystemColors) {
    DrivenProgress dialog(L"Tamblewick");
    CountColorChanges bar;
    dialog.Run([&] {
        WinLib::Attach(bar, dialog.Bar);
        LRESULT result = 0;
        EXPECT_FALSE(dialog.OnMessage(WM_SYSCOLORCHANGE, 0, 0, result));
        EXPECT_EQ(bar.Count, 0);
        EXPECT_TRUE(dialog.HandleSysColorChange());
        EXPECT_EQ(bar.Count, 1);
    });
}

TEST(ProgressController, AWorkersReportsAndEndReachTheDialog) {
    DrivenProgress dialog(L"Tamblewick");
    const Worker worker([&] {
        while (dialog.Window() == nullptr)
            Sleep(1);
        for (int i = 0; i < 100; ++i)
            dialog.Report(L"Scanning folders...", std::to_wstring(i));
        EXPECT_EQ(GetWindowText(dialog.StatusLine), L"Scanning folders...");
        EXPECT_EQ(GetWindowText(dialog.DetailLine), L"99");
        dialog.End();
    });
    EXPECT_EQ(dialog.Run(), Finished);
}

}  // namespace
