// The main window and its list: presses, errors, and closing with and without the question.
#include <gtest/gtest.h>

#include <mutex>

#include "MessageWatch.h"
#include "RaceThreads.h"
#include "SimulatedUser.h"
#include "app/MainController.h"
#include "app/MessageLoop.h"
#include "resources/resource.h"
#include "support/TempFolder.h"
#include "support/TestRegistry.h"
#include "support/jobs/RacingJob.h"
#include "support/ui/CommonControls.h"
#include "support/ui/DismissModal.h"
#include "support/ui/MessageBoxAnswerer.h"
#include "support/ui/MessagePump.h"
#include "winlib/Application.h"

namespace {

enum class Kind { Presses, FailingScan, Closing, AskedClosing };

const std::vector<int> Presses[] = {
    {},
    {IDC_PROGRESS_CANCEL},
    {IDC_PROGRESS_BACKGROUND},
    {IDC_PROGRESS_CANCEL, IDC_PROGRESS_BACKGROUND},
    {IDC_PROGRESS_BACKGROUND, IDC_PROGRESS_CANCEL},
};

// The windows of all threads belong to one program, whose record of them knows one thread: so they are made
// one after the other, and each thread has a record of its own for its loop.
std::mutex opening;

class MainWindowRace final : public RaceThread {
public:
    MainWindowRace(const TestSupport::TempFolder& folder, Ui::MessageBoxAnswerer& boxes, int number,
                   Kind kind)
        : folder_(folder),
          boxes_(boxes),
          name_(L"Thread " + std::to_wstring(number)),
          list_(L"Lists\\List of " + name_ + L".txt"),
          kind_(kind) {
        folder.AddFile(name_ + L"\\first.txt", 1);
        folder.AddFile(name_ + L"\\last.txt", 1);
        if (!Closes())
            Open();
    }
    ~MainWindowRace() override {
        if (IsWindow(window_))
            DestroyWindow(window_);
    }

    std::string Race(Random& random) override {
        if (!IsWindow(window_))
            Open();
        complaints_.clear();
        closeSeen_ = false;
        answer_ = random.Bool() ? IDYES : IDNO;
        presses_ = random.Choose(Presses);
        InterferencePlan plan(random, usualMessages_);
        plan.byMessages = true;
        SimulatedUser user(plan, Acts(random, plan), !Closes());
        {
            MessageWatch watch([&](HWND window, UINT message) {
                closeSeen_ |= window == window_ && message == WM_CLOSE;
                user.OnMessage(watch);
            });
            watch.Include(window_);
            StartAndEnd();
        }
        if (presses_.empty() && !Closes())
            usualMessages_ = user.Messages();
        if (Closes())
            Discard();
        JudgeList();
        DeleteFileW(folder_.Path(list_).c_str());
        return complaints_;
    }

private:
    bool Closes() const { return kind_ == Kind::Closing || kind_ == Kind::AskedClosing; }
    bool Fails() const { return kind_ == Kind::FailingScan; }

    // Between the races of closing no window is open, so that what they hold can be compared.
    void Discard() {
        if (IsWindow(window_))
            DestroyWindow(window_);
        MSG quit;
        PeekMessageW(&quit, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE);
        const std::lock_guard lock(opening);
        controller_.reset();
    }

    void Open() {
        const std::lock_guard lock(opening);
        WinLib::Application& process = *WinLib::Application::Current();
        controller_.reset();
        controller_ = std::make_unique<MainController>();
        WinLib::CreateModeless(process, window_, *controller_, IDD_MAIN, nullptr, process.Instance);
        loop_.Dialogs = std::exchange(process.Dialogs, {});
        usualWindows_ = WindowsOfThisThread();

        const HWND tree = GetDlgItem(window_, IDC_MAIN_TREE);
        TVITEMW item = {};
        item.mask = TVIF_PARAM;
        item.hItem = reinterpret_cast<HTREEITEM>(SendMessageW(tree, TVM_GETNEXTITEM, TVGN_ROOT, 0));
        SendMessageW(tree, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item));
        presetId_ = static_cast<uint32_t>(item.lParam);
    }

    // A closing window is closed once, before or after the presses.
    std::vector<SimulatedUser::Act> Acts(Random& random, const InterferencePlan& plan) const {
        std::vector<SimulatedUser::Act> acts;
        for (const int button : presses_)
            acts.push_back([plan, button](HWND dialog) {
                if (dialog != nullptr)
                    plan.Press(dialog, button);
            });
        if (Closes())
            acts.insert(acts.begin() + random.Between(0, static_cast<int>(acts.size())),
                        [this](HWND) { PostMessageW(window_, WM_CLOSE, 0, 0); });
        return acts;
    }

    void StartAndEnd() {
        const Ui::DismissModal user([this](HWND dialog) {
            if (GetDlgItem(dialog, IDC_PROGRESS_CANCEL) == nullptr)
                PostMessageW(dialog, WM_COMMAND, answer_, 0);
        });
        controller_->StartList(presetId_, folder_.Path(Fails() ? name_ + L" missing" : name_));
        if (Closes() && !closeSeen_)
            CloseNow();
        const bool closes = Closes() && (kind_ == Kind::Closing || answer_ == IDYES);
        if (closes)
            Require(RunMessageLoop(loop_) == 0, "not 0 from the loop");
        else
            Ui::MessagePump(window_).RunUntil([this] { return IsReady(); }, std::chrono::seconds(60),
                                              "the end of the list");
        Require(IsWindow(window_) != closes, "closed though it should not be, or not closed");
        Require(closes || IsWindowEnabled(window_), "the window is left disabled");
        if (!closes)
            Require(WindowsOfThisThread() <= usualWindows_, "a window is left");
    }

    // The moment did not come, or the message is still on its way, or was lost to the dialog's end.
    void CloseNow() const {
        MSG posted;
        PeekMessageW(&posted, window_, WM_CLOSE, WM_CLOSE, PM_REMOVE);
        SendMessageW(window_, WM_CLOSE, 0, 0);
    }

    bool IsReady() const {
        return IsWindowEnabled(GetDlgItem(window_, IDC_MAIN_CREATE_LIST)) &&
               (GetWindowLongW(GetDlgItem(window_, IDC_MAIN_BUSY_BAR), GWL_STYLE) & WS_VISIBLE) == 0;
    }

    void JudgeList() {
        const bool cancels =
            std::find(presses_.begin(), presses_.end(), IDC_PROGRESS_CANCEL) != presses_.end();
        const std::optional<std::string> list = folder_.Read(list_);
        Require(list.has_value() || cancels || Fails(), "no list");
        Require(!list.has_value() || !Fails(), "a list in spite of an error");
        Require(!list.has_value() || list->ends_with("last.txt\r\n"), "the list is not complete");
        Require(boxes_.TakeCount(name_ + L" missing") == (Fails() ? 1 : 0), "not one box for each error");
    }

    void Require(bool holds, const char* what) {
        if (!holds)
            complaints_ += std::string(what) + '\n';
    }

    const TestSupport::TempFolder& folder_;
    Ui::MessageBoxAnswerer& boxes_;
    const std::wstring name_;
    const std::wstring list_;
    const Kind kind_;
    WinLib::Application loop_{nullptr, L"", SW_SHOWNORMAL};
    std::unique_ptr<MainController> controller_;
    HWND window_ = nullptr;
    uint32_t presetId_ = 0;
    std::vector<int> presses_;
    WPARAM answer_ = IDYES;
    bool closeSeen_ = false;
    std::string complaints_;
    int usualMessages_ = 500;
    int usualWindows_ = 0;
};

struct MainWindowRaces : testing::Test {
    MainWindowRaces() {
        Ui::InitCommonControls();
        WinLib::Application::Install(
            std::make_unique<WinLib::Application>(GetModuleHandleW(nullptr), L"", SW_SHOWNORMAL));
        folder.AddFolder(L"Lists");
        const std::wstring key = std::wstring(MainSettings::RootKey) + L"\\preset";
        registry.SetString(key, L"Name", L"Preset");
        registry.SetDword(key, L"Position", 1);
        registry.SetString(key + L"\\Saving", L"SaveLocation", L"Custom");
        registry.SetString(key + L"\\Saving", L"CustomFolderPath", folder.Path(L"Lists"));
        registry.SetDword(key + L"\\Saving", L"OverwriteExisting", 1);
        registry.SetString(key + L"\\Opening", L"OpenMethod", L"Nothing");
    }

    void Race(int starts, Kind kind) {
        registry.SetDword(MainSettings::RootKey, L"ConfirmExit", kind == Kind::AskedClosing ? 1 : 0);
        Ui::MessageBoxAnswerer boxes;
        RaceOnThreads(StartsToMake(starts), [&](int number) {
            return std::make_unique<MainWindowRace>(folder, boxes, number, kind);
        });
    }

    const TestSupport::TempFolder folder;
    const TestSupport::TestRegistry registry;
};

TEST_F(MainWindowRaces, OfPresses) {
    Race(1200, Kind::Presses);
}

TEST_F(MainWindowRaces, OfErrors) {
    Race(200, Kind::FailingScan);
}

TEST_F(MainWindowRaces, OfClosing) {
    Race(100, Kind::Closing);
}

TEST_F(MainWindowRaces, OfClosingWithTheQuestion) {
    Race(100, Kind::AskedClosing);
}

}  // namespace
