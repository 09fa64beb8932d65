#include "support/jobs/RacingJob.h"

#include <cstdlib>

#include "resources/resource.h"
#include "winlib/SentMessages.h"

int StartsToMake(int usual) {
    const char* const given = std::getenv("TAMBLEWICK_STARTS");
    return given != nullptr ? std::atoi(given) : usual;
}

void RaceRecord::Press(int button, const std::function<bool()>& press) {
    Button& pressed = button == IDC_PROGRESS_CANCEL ? Cancel : Background;
    pressed.tried = true;
    if (press())
        pressed.taken = true;
}

void RaceRecord::Step() {
    AtStep(++Steps);
}

void RaceRecord::Complain(const std::string& what) {
    const std::lock_guard lock(mutex_);
    complaints_ += what + '\n';
}

std::string RaceRecord::Complaints() const {
    const std::lock_guard lock(mutex_);
    return complaints_;
}

void RaceRecord::Judge(const Outcome& outcome, bool fails) {
    const auto require = [this](bool holds, const char* what) {
        if (!holds)
            Complain(what);
    };
    require(Finishing, "the worker did not come to Finish");
    require(outcome.started || Background.tried, "Start returned a background that was not requested");
    require(!outcome.started || FinishingAtReturn, "Start returned an end that had not come");

    require(Errors == (fails ? 1 : 0), "not one error for a missing folder and none for another");
    if (outcome.boxes != Errors)
        Complain(std::to_string(outcome.boxes) + " answered boxes for " + std::to_string(Errors) + " errors");
    if (outcome.hasOwner) {
        require(outcome.endMessages >= 1, "no end message");
        require(outcome.endMessages <= 1 + Errors, "too many end messages");
    }

    require(outcome.listExists == Document, "the list file is there without a document or missing with one");
    require(!outcome.listExists || outcome.listIsComplete, "the list is not complete");
    require(!fails || !Document, "a document in spite of an error");
    require(fails || Document || Cancel.tried, "no document though the job was not cancelled");
    require(!Document || !CancelledBeforeScan || Background.tried, "a document in spite of a cancel");
}

RacingJob::RacingJob(HWND ownerWindow, const Preset& source, const std::wstring& listedPath,
                     RaceRecord& record)
    : ListMakerWithUI(ownerWindow, source, listedPath), record_(record) {}

RacingJob::~RacingJob() {
    if (worker.joinable())
        WinLib::WaitServingSentMessages([this] { return IsFinished(); });
    Join();
}

bool RacingJob::Start() {
    const bool ended = ListMakerWithUI::Start();
    record_.FinishingAtReturn = record_.Finishing.load();
    record_.StartReturned = true;
    if (ended && !IsFinished())
        record_.Complain("Start returned an end and the job is not finished");
    return ended;
}

void RacingJob::Prepare() {
    record_.CancelledBeforeScan = record_.Cancel.taken.load();
    record_.Step();
}

void RacingJob::OnProgress(const std::wstring& status, const std::wstring& detail) {
    record_.Step();
    if (status == L"Creating document...") {
        record_.Document = true;
        if (record_.SawCancel)
            record_.Complain("a document though the scan was cancelled");
    }
    ListMakerWithUI::OnProgress(status, detail);
    record_.Step();
}

void RacingJob::OnError(const std::wstring& message) {
    ++record_.Errors;
    record_.Step();
    AroundError([&] { ListMakerWithUI::OnError(message); });
    record_.Step();
}

bool RacingJob::IsCancelled() {
    record_.Step();
    const bool mustBe = record_.Cancel.taken;
    const bool mustNotBe = record_.StartReturned;
    const bool is = ListMakerWithUI::IsCancelled();
    if (is && !record_.Cancel.tried)
        record_.Complain("cancelled without a press");
    if (is && mustNotBe)
        record_.Complain("cancelled after the end of the dialog");
    if (!is && mustBe && !record_.Background.tried)
        record_.Complain("a cancel was not seen");
    record_.SawCancel = is;
    record_.Step();
    return is;
}

void RacingJob::Finish() {
    record_.Finishing = true;
    record_.Step();
    ListMakerWithUI::Finish();
    if (!IsFinished())
        record_.Complain("not finished after Finish");
    record_.Ended = true;
    record_.Step();
}
