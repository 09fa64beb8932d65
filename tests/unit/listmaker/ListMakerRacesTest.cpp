// Thousands of starts in which the user presses buttons, the scan fails, and the owner deletes the job, each
// at any moment of the dialog's thread and of the worker.
#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <thread>
#include <vector>

#include "JobFixture.h"
#include "support/Random.h"
#include "support/jobs/RacingJob.h"

namespace {

using ListMakerRaces = JobTest::Fixture;

const std::vector<int> Presses[] = {
    {},
    {IDC_PROGRESS_CANCEL},
    {IDC_PROGRESS_BACKGROUND},
    {IDC_PROGRESS_CANCEL, IDC_PROGRESS_BACKGROUND},
    {IDC_PROGRESS_BACKGROUND, IDC_PROGRESS_CANCEL},
};

// Which thread presses: the dialog's thread as soon as it shows, another one, or the worker itself between
// two steps.
enum class Presser { AtOnce, OtherThread, BetweenSteps };
constexpr Presser Pressers[] = {Presser::AtOnce, Presser::OtherThread, Presser::BetweenSteps};

struct Plan {
    explicit Plan(Random& random)
        : hasOwner(random.Bool()),
          fails(random.Below(4) == 0),
          presses(random.Choose(Presses)),
          presser(random.Choose(Pressers)),
          step(random.Between(0, RaceRecord::UsualSteps)),
          pause(random.Below(2) * random.Below(50)),
          holdUntil(random.Below(3) == 0 ? random.Between(1, RaceRecord::UsualSteps) : 0),
          deletedAtOnce(random.Bool()) {}

    bool hasOwner;
    bool fails;  // the folder is missing
    std::vector<int> presses;
    Presser presser;
    int step;        // of the worker, at which it is pressed
    uint32_t pause;  // how often other threads may run before each press
    int holdUntil;   // the step before which no dialog comes into being
    bool deletedAtOnce;
};

// One start from its plan to its judgement.
class Race {
public:
    explicit Race(const Plan& plan) : plan_(plan) {}

    // Returns what was wrong, or nothing.
    std::string Run() {
        current = this;
        std::atomic<int> opened = 0;
        FakeWin::OnShellExecute([&](const FakeWin::ShellExecution&) { ++opened; });
        FakeWin::OnDialogShown(IDD_PROGRESS, [this](HWND dialog) {
            dialog_ = dialog;
            if (plan_.presser == Presser::AtOnce)
                PressAll();
        });
        std::atomic<int> boxes = 0;
        FakeWin::OnMessageBox([&](const FakeWin::MessageBoxCall& box) {
            boxes += box.owner == nullptr || box.ownerExisted ? 1 : 0;
            Pause();
            return IDOK;
        });
        const HWND owner = plan_.hasOwner ? FakeWin::CreatePlainWindow(OwnerProcedure) : nullptr;
        const bool ended = StartAndDelete(owner);
        const std::string list = FakeWin::Contents(JobTest::List).value_or("");
        if (!list.empty())
            FakeWin::RemoveEntry(JobTest::List);
        const int endMessages = static_cast<int>(FakeWin::PostedTo(owner).size());
        record_.Judge({ended, !list.empty(), IsComplete(list), boxes, endMessages, plan_.hasOwner},
                      plan_.fails);
        if (endMessages != (plan_.hasOwner ? 1 + record_.Errors : 0))
            record_.Complain("a wrong number of end messages");
        if (opened != (record_.Document && !record_.SawCancel ? 1 : 0))
            record_.Complain("opened though cancelled, or not opened");
        if (plan_.hasOwner && !IsWindowEnabled(owner))
            record_.Complain("the owner is left disabled");
        if (owner != nullptr)
            DestroyWindow(owner);
        return record_.Complaints();
    }

private:
    static bool IsComplete(const std::string& list) {
        return list.find("inside.txt") != std::string::npos && list.ends_with("last.txt\r\n");
    }

    bool StartAndDelete(HWND owner) {
        RacingJob job(owner, JobTest::MakePreset(), plan_.fails ? L"C:\\missing" : JobTest::Folder, record_);
        record_.AtStep = [this](int step) {
            if (plan_.presser == Presser::BetweenSteps && step >= plan_.step && dialog_.load() != nullptr)
                PressAll();
        };
        std::thread user;
        if (plan_.presser == Presser::OtherThread)
            user = std::thread([this] { PressOtherThread(); });
        const bool ended = job.Start();
        while (!plan_.deletedAtOnce && !job.IsFinished()) {
            MSG message;
            PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);
            std::this_thread::yield();
        }
        if (user.joinable())
            user.join();
        return ended;
    }

    void PressOtherThread() {
        while ((dialog_.load() == nullptr || record_.Steps < plan_.step) && !record_.StartReturned)
            std::this_thread::yield();
        PressAll();
    }

    void PressAll() {
        if (pressed_.exchange(true))
            return;
        for (const int button : plan_.presses) {
            Pause();
            record_.Press(button, [&] { return FakeWin::Click(dialog_, button); });
        }
    }

    void Pause() const {
        for (uint32_t i = 0; i < plan_.pause; ++i)
            std::this_thread::yield();
    }

    // Being disabled is the last that happens to the owner before the dialog comes into being. An error waits
    // for the dialog, so the dialog must not wait for an error.
    static LRESULT CALLBACK OwnerProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        while (message == WM_ENABLE && wParam == FALSE && current->dialog_.load() == nullptr &&
               current->record_.Steps < current->plan_.holdUntil && current->record_.Errors == 0 &&
               !current->record_.Ended) {
            MSG unused;
            PeekMessageW(&unused, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);
            std::this_thread::yield();
        }
        return DefWindowProcW(window, message, wParam, lParam);
    }

    inline static Race* current = nullptr;

    const Plan plan_;
    RaceRecord record_;
    std::atomic<HWND> dialog_ = nullptr;
    std::atomic<bool> pressed_ = false;
};

TEST_F(ListMakerRaces, EndAsTheUserAndTheWorkerHaveAgreed) {
    FakeWin::AddFile(std::wstring(JobTest::Folder) + L"\\last.txt", 1);
    ForRandomInputs(StartsToMake(2000), [&](Random& random) {
        EXPECT_EQ(Race(Plan(random)).Run(), "");
        EXPECT_EQ(FakeWin::OpenWindows(), 1) << "the owner of the fixture alone";
    });
}

}  // namespace
