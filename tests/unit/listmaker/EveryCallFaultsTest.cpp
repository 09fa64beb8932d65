// Whole jobs in which each use of each call fails: without a dialog, with one, with one that cannot be
// made, and on a folder that is not there.
#include <gtest/gtest.h>

#include <atomic>
#include <optional>

#include "FailingJob.h"
#include "FakeWindows.h"
#include "TestJob.h"
#include "resources/resource.h"
#include "support/ProgressDialog.h"
#include "winlib/Exception.h"

using FailingJob::Before;
using FailingJob::MakePreset;
using FailingJob::NothingShows;
using FailingJob::Outcome;
using FailingJob::Row;
using FakeWin::Call;
using TestSupport::Failure;
using TestSupport::Situation;

namespace {

constexpr wchar_t Missing[] = L"C:\\Missing";

struct EveryCallOfAJob : testing::Test {
    void RunAlone(const Preset& preset) {
        ListMaker job(preset, FailingJob::Folder);
        job.Start();
    }

    void RunWithDialog(const std::wstring& folder) {
        thrown_.clear();
        result_.reset();
        // The worker begins when it is settled whether there is a dialog.
        std::atomic<bool> begin = false;
        const auto letBegin = [&] {
            begin = true;
            begin.notify_all();
        };
        FakeWin::OnDialogShown(IDD_PROGRESS, [&](HWND) { letBegin(); });
        TestJob job(owner_, MakePreset(), folder);
        job.AtTheBeginning = [&] { begin.wait(false); };
        try {
            result_ = job.Start();
        } catch (const WinLib::Exception& exception) {
            thrown_ = exception.Message;
            letBegin();
        }
    }

    void Prepare() {
        FailingJob::Prepare();
        before_.emplace();
    }

    void PrepareWithDialog() {
        Prepare();
        owner_ = FakeWin::CreatePlainWindow();
        DefineProgressDialog();
    }

    void ExpectWithDialog(const Outcome& outcome) {
        FailingJob::Expect(outcome, *before_);
        std::vector<std::wstring> messages;
        for (const FakeWin::MessageBoxCall& box : FakeWin::MessageBoxes()) {
            messages.push_back(box.text);
            EXPECT_EQ(box.caption, L"Tamblewick");
            EXPECT_EQ(box.type, 0x10u);
        }
        EXPECT_EQ(messages, outcome.messages);
        EXPECT_EQ(FakeWin::PostedTo(owner_).size(), static_cast<size_t>(outcome.endMessages));
        EXPECT_EQ(thrown_, outcome.thrown);
        EXPECT_EQ(result_, outcome.thrown.empty() ? std::optional(true) : std::nullopt);
        EXPECT_EQ(FakeWin::OpenWindows(), 1) << "the owner alone";
    }

    std::optional<Before> before_;
    HWND owner_ = nullptr;
    std::wstring thrown_;
    std::optional<bool> result_;
};

void OneEndMessageIsLost(Outcome& outcome, const Failure&) {
    --outcome.endMessages;
}

void StartThrows(Outcome& outcome, const Failure&) {
    outcome.thrown = L"Access is denied.\r\n";
}

void SystemHasNoText(Outcome& outcome, const Failure&) {
    outcome.thrown = L"An unidentified Windows error has occurred.";
}

std::vector<Row> RowsWithDialog() {
    std::vector<Row> rows = FailingJob::Rows();
    rows.push_back({Call::DialogBoxParamW, ERROR_ACCESS_DENIED, StartThrows});
    rows.push_back({Call::LoadImageW, ERROR_RESOURCE_NAME_NOT_FOUND, NothingShows});
    rows.push_back({Call::PostMessageW, ERROR_NOT_ENOUGH_MEMORY, OneEndMessageIsLost});
    return rows;
}

TEST_F(EveryCallOfAJob, AloneHasTheOutcomeThatIsSettledForIt) {
    for (const OpenMethod method : {OpenMethod::Default, OpenMethod::Custom, OpenMethod::Nothing}) {
        SCOPED_TRACE(static_cast<int>(method));
        std::vector<Row> rows = FailingJob::Rows();
        if (method == OpenMethod::Nothing)
            std::erase_if(
                rows, [](const Row& row) { return row.call == Call::ShellExecuteExW; });
        const Situation situation{[this] { Prepare(); }, [&] { RunAlone(MakePreset(method)); }};
        TestSupport::FailEveryCall<Row>(situation, rows, [&](const Row& row, const Failure& failure) {
            Outcome outcome(method);
            row.change(outcome, failure);
            FailingJob::Expect(outcome, *before_);
            EXPECT_EQ(FakeWin::Uses(Call::MessageBoxW) + FakeWin::Uses(Call::PostMessageW), 0);
        });
    }
}

TEST_F(EveryCallOfAJob, ThatMakesAFlatListHasTheOutcomeThatIsSettledForIt) {
    Preset preset = MakePreset();
    preset.Get(Display::ShowFlatStyle) = true;
    preset.Get(Columns::ShowHeaders) = false;
    const Situation situation{[this] { Prepare(); }, [&] { RunAlone(preset); }};
    TestSupport::FailEveryCall<Row>(situation, FailingJob::Rows(),
                                    [&](const Row& row, const Failure& failure) {
                                        Outcome outcome;
                                        outcome.lines = FailingJob::FlatLines();
                                        row.change(outcome, failure);
                                        FailingJob::Expect(outcome, *before_);
                                    });
}

TEST_F(EveryCallOfAJob, BehindADialogHasTheOutcomeThatIsSettledForIt) {
    const Situation situation{[this] { PrepareWithDialog(); }, [this] { RunWithDialog(FailingJob::Folder); }};
    TestSupport::FailEveryCall<Row>(situation, RowsWithDialog(), [&](const Row& row, const Failure& failure) {
        Outcome outcome;
        row.change(outcome, failure);
        ExpectWithDialog(outcome);
    });
}

TEST_F(EveryCallOfAJob, WithADialogThatCannotBeMadeGoesOnAndReportsWhy) {
    const auto prepare = [this] {
        PrepareWithDialog();
        FakeWin::Fail(Call::DialogBoxParamW, ERROR_ACCESS_DENIED, 1);
    };
    std::vector<Row> rows = FailingJob::Rows();
    rows.push_back({Call::DialogBoxParamW, TestSupport::CannotFail, nullptr});
    rows.push_back({Call::PostMessageW, ERROR_NOT_ENOUGH_MEMORY, OneEndMessageIsLost});
    rows.push_back({Call::FormatMessageW, ERROR_MR_MID_NOT_FOUND, SystemHasNoText});
    rows.push_back({Call::LocalFree, TestSupport::CannotFail, nullptr});
    const Situation situation{prepare, [this] { RunWithDialog(FailingJob::Folder); }};
    TestSupport::FailEveryCall<Row>(situation, rows, [&](const Row& row, const Failure& failure) {
        Outcome outcome;
        StartThrows(outcome, failure);
        row.change(outcome, failure);
        ExpectWithDialog(outcome);
    });
}

TEST_F(EveryCallOfAJob, OnAMissingFolderShowsOneMessageAndWritesNothing) {
    std::vector<Row> rows = FailingJob::RowsOfAFailedScan();
    rows.push_back({Call::FindFirstFileExW, ERROR_PATH_NOT_FOUND, NothingShows});
    rows.push_back({Call::DialogBoxParamW, ERROR_ACCESS_DENIED, StartThrows});
    rows.push_back({Call::LoadImageW, ERROR_RESOURCE_NAME_NOT_FOUND, NothingShows});
    rows.push_back({Call::PostMessageW, ERROR_NOT_ENOUGH_MEMORY, OneEndMessageIsLost});
    // The box that fails on the dialog is shown on the owner.
    rows.push_back({Call::MessageBoxW, ERROR_NOT_ENOUGH_MEMORY, NothingShows});
    const Situation situation{[this] { PrepareWithDialog(); }, [this] { RunWithDialog(Missing); }};
    TestSupport::FailEveryCall<Row>(situation, rows, [&](const Row& row, const Failure& failure) {
        Outcome outcome;
        row.change(outcome, failure);
        outcome.listExists = false;
        outcome.opened = false;
        outcome.messages = {
            L"The folder 'C:\\Missing' does not exist or cannot be accessed by the application.\n"
            L"The listing proccess will be cancelled."};
        ++outcome.endMessages;
        ExpectWithDialog(outcome);
    });
}

TEST_F(EveryCallOfAJob, OnAFullDiskEndsInOrderWithAsMuchAsThereIsRoomFor) {
    std::string whole;
    for (const FailingJob::Line& line : Outcome().lines)
        whole += line.Whole() + "\r\n";
    for (size_t room = 0; room <= whole.size(); room += 13) {
        SCOPED_TRACE(room);
        FakeWin::Reset();
        PrepareWithDialog();
        FakeWin::FailWritesAfter(FailingJob::SecondName, room);
        RunWithDialog(FailingJob::Folder);
        EXPECT_EQ(FakeWin::Contents(FailingJob::SecondName), whole.substr(0, room));
        EXPECT_EQ(FakeWin::LeftOpen(), "");
        FakeWin::AddFile(FailingJob::SecondName, whole);
        ExpectWithDialog(Outcome());
    }
}

// A page has line feeds that are not flushed by themselves, so the cut may lie between any two of its lines.
TEST_F(EveryCallOfAJob, ThatWritesAPageLosesWhatFollowsAFailedWrite) {
    Preset preset = MakePreset();
    preset.Get(Format::ListStyle) = ListStyle::Html;
    constexpr wchar_t Page[] = L"C:\\Temp\\List of Photos.html";
    const TestSupport::EveryCall every({[this] { Prepare(); }, [&] { RunAlone(preset); }});
    const std::string whole = FakeWin::Contents(Page).value_or("");
    ASSERT_TRUE(whole.ends_with("</html>\r\n")) << whole;
    size_t length = 0;
    every.FailEachUse(Call::WriteFile, ERROR_DISK_FULL, [&](const Failure& failure) {
        const std::string cut = FakeWin::Contents(Page).value_or("no page");
        EXPECT_TRUE(whole.starts_with(cut)) << cut;
        EXPECT_TRUE(cut.empty() || cut.ends_with("\r\n")) << cut;
        EXPECT_EQ(cut.empty(), failure.use == 1);
        EXPECT_TRUE(failure.use == 1 || cut.size() > length);
        EXPECT_LT(cut.size(), whole.size());
        length = cut.size();
        ASSERT_EQ(FakeWin::ShellExecutions().size(), 1u);
    });
    every.FailEachUse(Call::OpenFile, ERROR_ACCESS_DENIED, [&](const Failure&) {
        EXPECT_EQ(FakeWin::Contents(Page), std::nullopt);
        EXPECT_EQ(FakeWin::ShellExecutions().size(), 1u);
    });
}

}  // namespace
