// A job with its dialog: without an owner, as from the command line, and with one.
#include <gtest/gtest.h>

#include "MessageWatch.h"
#include "RaceThreads.h"
#include "SimulatedUser.h"
#include "resources/resource.h"
#include "support/TempFolder.h"
#include "support/jobs/RacingJob.h"
#include "support/ui/CommonControls.h"
#include "support/ui/DismissModal.h"
#include "unit/listmaker/TestJob.h"
#include "winlib/SentMessages.h"

#include <commctrl.h>

namespace {

const std::vector<int> Presses[] = {
    {},
    {IDC_PROGRESS_CANCEL},
    {IDC_PROGRESS_BACKGROUND},
    {IDC_PROGRESS_CANCEL, IDC_PROGRESS_BACKGROUND},
    {IDC_PROGRESS_BACKGROUND, IDC_PROGRESS_CANCEL},
};

// Set by one thread and taken by another that has windows.
class Event {
public:
    Event() : handle_(CreateEventW(nullptr, FALSE, FALSE, nullptr)) {}
    Event(const Event&) = delete;
    Event& operator=(const Event&) = delete;
    ~Event() { CloseHandle(handle_); }

    void Set() const { SetEvent(handle_); }

    // Waits and serves meanwhile what other threads send.
    void Take() const {
        while (MsgWaitForMultipleObjects(1, &handle_, FALSE, INFINITE, QS_SENDMESSAGE) != WAIT_OBJECT_0) {
            MSG unused;
            PeekMessageW(&unused, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);
        }
    }

private:
    const HANDLE handle_;
};

// By which clock the user presses; when the scan fails, by either.
enum class Kind { ByMessages, BySteps, FailingScan };

class JobRace final : public RaceThread {
public:
    JobRace(const TestSupport::TempFolder& folder, int number, bool hasOwner, Kind kind)
        : folder_(folder),
          name_(L"Thread " + std::to_wstring(number)),
          list_(L"Lists\\List of " + name_ + L".txt"),
          kind_(kind),
          owner_(hasOwner ? CreateWindowExW(0, L"STATIC", L"Owner", WS_POPUP | WS_VISIBLE, 0, 0, 200, 100,
                                            nullptr, nullptr, GetModuleHandleW(nullptr), nullptr)
                          : nullptr) {
        folder.AddFile(name_ + L"\\first.txt", 1);
        folder.AddFile(name_ + L"\\last.txt", 1);
    }
    ~JobRace() override {
        if (owner_ != nullptr)
            DestroyWindow(owner_);
    }

    std::string Race(Random& random) override {
        InterferencePlan plan(random, usualMessages_);
        if (kind_ != Kind::FailingScan)
            plan.byMessages = kind_ == Kind::ByMessages;
        const std::vector<int>& presses = random.Choose(Presses);
        const int holdUntil = random.Below(3) == 0 ? random.Between(1, RaceRecord::UsualSteps) : 0;
        const bool deletedAtOnce = random.Bool();
        RaceRecord record;

        std::vector<SimulatedUser::Act> acts;
        for (const int button : presses)
            acts.push_back([&record, plan, button](HWND dialog) {
                record.Press(button, [&] { return plan.Press(dialog, button); });
            });
        SimulatedUser user(plan, acts, true);
        boxes_ = 0;
        endMessages_ = 0;
        const bool ended = StartAndDelete(user, record, holdUntil, deletedAtOnce);

        if (presses.empty() && holdUntil == 0)
            usualMessages_ = user.Messages();
        record.Judge({ended, folder_.Exists(list_), IsComplete(), boxes_, endMessages_, owner_ != nullptr},
                     kind_ == Kind::FailingScan);
        if (owner_ != nullptr && !IsWindowEnabled(owner_))
            record.Complain("the owner is left disabled");
        if (usualWindows_ == 0)
            usualWindows_ = WindowsOfThisThread();
        if (WindowsOfThisThread() > usualWindows_)
            record.Complain("a window is left");
        DeleteFileW(folder_.Path(list_).c_str());
        return record.Complaints();
    }

private:
    bool StartAndDelete(SimulatedUser& user, RaceRecord& record, int holdUntil, bool deletedAtOnce) {
        const std::wstring path = folder_.Path(kind_ == Kind::FailingScan ? name_ + L" missing" : name_);
        const Event released;
        bool held = holdUntil == 0;
        MessageWatch watch([&](HWND window, UINT message) {
            if (window == owner_ && message == WM_APP)
                endMessages_++;
            // The first message comes before there is a dialog. Then this thread has something else to do
            // until the worker has made its steps.
            if (!std::exchange(held, true))
                released.Take();
            user.OnMessage(watch);
        });
        if (owner_ != nullptr)
            watch.Include(owner_);
        bool ended = false;
        {
            RacingJob job(owner_, MakeJobPreset(folder_.Path(L"Lists"), OpenMethod::Nothing), path, record);
            record.AtStep = [&](int step) {
                user.OnStep(watch, step);
                // An error waits for the dialog.
                if (step == holdUntil || record.Errors > 0 || record.Ended)
                    released.Set();
            };
            job.AroundError = [this](const std::function<void()>& show) {
                const Ui::DismissModal answer(IDOK);
                show();
                boxes_ += static_cast<int>(answer.Seen().size());
            };
            ended = job.Start();
            if (!deletedAtOnce)
                WinLib::WaitServingSentMessages([&] { return job.IsFinished(); });
        }
        DispatchEndMessages();
        return ended;
    }

    // Hands out what has been posted to the owner.
    void DispatchEndMessages() const {
        MSG message;
        while (owner_ != nullptr && PeekMessageW(&message, owner_, WM_APP, WM_APP, PM_REMOVE))
            DispatchMessageW(&message);
    }

    bool IsComplete() const {
        const std::string list = folder_.Read(list_).value_or("");
        return list.find("first.txt\r\n") != std::string::npos && list.ends_with("last.txt\r\n");
    }

    const TestSupport::TempFolder& folder_;
    const std::wstring name_;
    const std::wstring list_;
    const Kind kind_;
    const HWND owner_;
    std::atomic<int> boxes_ = 0;
    int endMessages_ = 0;
    int usualMessages_ = 300;
    int usualWindows_ = 0;
};

struct JobRaces : testing::Test {
    JobRaces() {
        Ui::InitCommonControls();
        folder.AddFolder(L"Lists");
    }

    void Race(int starts, bool hasOwner, Kind kind) {
        RaceOnThreads(
            StartsToMake(starts),
            [&](int number) { return std::make_unique<JobRace>(folder, number, hasOwner, kind); });
    }

    const TestSupport::TempFolder folder;
};

TEST_F(JobRaces, WithoutAnOwnerByMessages) {
    Race(1850, false, Kind::ByMessages);
}

TEST_F(JobRaces, WithoutAnOwnerBySteps) {
    Race(1850, false, Kind::BySteps);
}

TEST_F(JobRaces, WithAnOwnerByMessages) {
    Race(1850, true, Kind::ByMessages);
}

TEST_F(JobRaces, WithAnOwnerBySteps) {
    Race(1850, true, Kind::BySteps);
}

TEST_F(JobRaces, FailingWithoutAnOwner) {
    Race(500, false, Kind::FailingScan);
}

TEST_F(JobRaces, FailingWithAnOwner) {
    Race(500, true, Kind::FailingScan);
}

}  // namespace
