// The job may end before its dialog exists, while it is being made, or later: it always closes.
#include <gtest/gtest.h>

#include <chrono>
#include <thread>

#include "DrivenProgress.h"
#include "Worker.h"
#include "support/ProgressDialog.h"

namespace {

constexpr INT_PTR Finished = 1;

TEST(ProgressEnd, BeforeTheDialogExistsClosesItAtOnce) {
    DrivenProgress dialog(L"Tamblewick");
    dialog.End();
    EXPECT_EQ(dialog.Run(), Finished);
    EXPECT_FALSE(IsWindow(dialog.Handle));
}

TEST(ProgressEnd, WithinInitDialogIsFoundAtItsEnd) {
    class EndsInInit : public DrivenProgress {
    public:
        using DrivenProgress::DrivenProgress;
        bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override {
            if (message == WM_INITDIALOG)
                End();
            return DrivenProgress::OnMessage(message, wParam, lParam, result);
        }
    } dialog(L"Tamblewick");
    EXPECT_EQ(dialog.Run(), Finished);
}

// Its job ends at one message to the dialog, of those that come before the dialog is complete.
class EndsAtMessage : public DrivenProgress {
public:
    explicit EndsAtMessage(int message) : DrivenProgress(L"Tamblewick"), endsAt_(message) {}

    bool HasEnded() const { return hasEnded_; }

    bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override {
        if (Window() == nullptr && ++messages_ == endsAt_) {
            hasEnded_ = true;
            const Worker worker([this] { End(); });
        }
        return DrivenProgress::OnMessage(message, wParam, lParam, result);
    }

private:
    const int endsAt_;
    int messages_ = 0;
    bool hasEnded_ = false;
};

TEST(ProgressEnd, AtEachMessageOfTheCreationCloses) {
    for (int message = 1;; ++message) {
        EndsAtMessage dialog(message);
        const INT_PTR result = dialog.Run([] {});
        if (!dialog.HasEnded()) {
            EXPECT_GT(message, 3) << "at least WM_INITDIALOG, the title and showing";
            break;
        }
        EXPECT_EQ(result, Finished) << "message " << message;
    }
}

TEST(ProgressEnd, BeforeTheDialogExistsKeepsItFromTheScreen) {
    class CountsShowing : public DrivenProgress {
    public:
        using DrivenProgress::DrivenProgress;
        bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override {
            Shown += message == WM_SHOWWINDOW && wParam != FALSE;
            return DrivenProgress::OnMessage(message, wParam, lParam, result);
        }
        int Shown = 0;
    } dialog(L"Tamblewick");
    dialog.End();
    EXPECT_EQ(dialog.Run(), Finished);
    EXPECT_EQ(dialog.Shown, 0);
}

// The moments are spread over the time that a dialog takes to be made and ended.
TEST(ProgressEnd, OfAWorkerAtAnyMomentCloses) {
    using Clock = std::chrono::steady_clock;
    const Clock::time_point begin = Clock::now();
    DrivenProgress first(L"Tamblewick");
    first.End();
    first.Run();
    const Clock::duration whole = Clock::now() - begin;

    for (int i = 0; i < ManyDialogs; ++i) {
        DrivenProgress dialog(L"Tamblewick");
        const Worker worker([&, end = Clock::now() + i * whole / ManyDialogs] {
            while (Clock::now() < end)
                std::this_thread::yield();
            dialog.Report(L"Scanning folders...", L"C:\\Data");
            dialog.End();
        });
        EXPECT_EQ(dialog.Run(), Finished) << "job " << i;
    }
}

}  // namespace
