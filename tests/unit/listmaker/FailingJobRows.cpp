// What the failure of each call that a job makes leads to.
#include <gtest/gtest.h>

#include "FailingJob.h"

using FakeWin::Call;
using TestSupport::Failure;

namespace FailingJob {
namespace {

// The lines with a stamp, in the order in which they are written.
std::vector<size_t> Stamps(const Outcome& outcome) {
    std::vector<size_t> stamps;
    for (size_t i = 0; i < outcome.lines.size(); ++i)
        if (!outcome.lines[i].date.empty())
            stamps.push_back(i);
    return stamps;
}

size_t Index(int use) {
    return static_cast<size_t>(use) - 1;
}

void FolderStaysEmpty(Outcome& outcome, const Failure& failure) {
    std::erase_if(
        outcome.lines,
        [&](const Line& line) {
            return line.folder == failure.subject || line.folder.starts_with(failure.subject + L"\\");
        });
}

void NoListAndMessage(Outcome& outcome, const std::wstring& message) {
    outcome.listExists = false;
    outcome.opened = false;
    outcome.messages = {message + L"\nThe listing proccess will be cancelled."};
    outcome.endMessages = 2;
}

void DoesNotExist(Outcome& outcome, const Failure& failure) {
    NoListAndMessage(outcome, L"The folder '" + failure.subject +
                                  L"' does not exist or cannot be accessed by the application.");
}

void IsInvalid(Outcome& outcome, const Failure& failure) {
    NoListAndMessage(outcome, L"The path '" + failure.subject + L"' is invalid and cannot be searched.");
}

void UnknownError(Outcome& outcome, const std::wstring& path) {
    NoListAndMessage(outcome,
                     L"An unknown error has occurred when trying to search the path '" + path + L"'.");
}

void IsUnknown(Outcome& outcome, const Failure& failure) {
    UnknownError(outcome, failure.subject);
}

// The folder whose enumeration takes this step: each takes one for every entry after the first, which is
// ".", and one for its end.
void BreaksOff(Outcome& outcome, const Failure& failure) {
    const struct {
        const wchar_t* path;
        int steps;
    } folders[] = {{L"C:\\Photos", 7},
                   {L"C:\\Photos\\beta", 4},
                   {L"C:\\Photos\\beta\\deep", 3},
                   {L"C:\\Photos\\alpha", 3}};
    int step = failure.use;
    for (const auto& folder : folders) {
        if (step <= folder.steps)
            return UnknownError(outcome, folder.path);
        step -= folder.steps;
    }
    ADD_FAILURE() << "step " << failure.use << " is one too many";
}

// A name that cannot be examined counts as free; the second one is.
void NameCountsAsFree(Outcome& outcome, const Failure& failure) {
    outcome.listPath = failure.use == 1 ? FirstName : SecondName;
}

void NameIsRelative(Outcome& outcome, const Failure&) {
    outcome.listPath = RelativeName;
}

void ListIsMissing(Outcome& outcome, const Failure&) {
    outcome.listExists = false;
}

// Every line leaves in one write.
void ListIsCutOff(Outcome& outcome, const Failure& failure) {
    outcome.lines.resize(Index(failure.use));
}

void RowHasAnyTime(Outcome& outcome, const Failure& failure) {
    outcome.lineOfAnyTime = Stamps(outcome)[Index(failure.use) + 1];
}

void DateIsMissing(Outcome& outcome, const Failure& failure) {
    outcome.lines[Stamps(outcome)[Index(failure.use)]].date.clear();
}

// What the one buffer for all stamps has after the date is the time that was formatted last.
void TimeIsTheOneBefore(Outcome& outcome, const Failure& failure) {
    const std::vector<size_t> stamps = Stamps(outcome);
    const size_t stamp = Index(failure.use);
    outcome.lines[stamps[stamp]].time = stamp == 0 ? "00:00:00" : outcome.lines[stamps[stamp - 1]].time;
}

}  // namespace

void NothingShows(Outcome&, const Failure&) {}

std::vector<Row> Rows() {
    using TestSupport::CannotFail;
    return {
        {Call::GetTempPathW, ERROR_NOT_ENOUGH_MEMORY, NameIsRelative},
        {Call::GetFileAttributesW, ERROR_ACCESS_DENIED, NameCountsAsFree},
        {Call::Sleep, CannotFail, nullptr},
        {Call::GetTickCount, CannotFail, nullptr},
        {Call::CharLowerW, CannotFail, nullptr},
        {Call::GetFileAttributesExW, ERROR_ACCESS_DENIED, NothingShows},
        {Call::FindFirstFileExW, ERROR_NOT_SUPPORTED, NothingShows},
        {Call::FindFirstFileExW, ERROR_ACCESS_DENIED, FolderStaysEmpty},
        {Call::FindFirstFileExW, ERROR_PATH_NOT_FOUND, DoesNotExist},
        {Call::FindFirstFileExW, ERROR_INVALID_NAME, IsInvalid},
        {Call::FindFirstFileExW, ERROR_FILE_NOT_FOUND, IsUnknown},
        {Call::FindFirstFileExW, ERROR_NO_MORE_FILES, IsUnknown},
        {Call::FindFirstFileExW, ERROR_NOT_READY, IsUnknown},
        {Call::FindNextFileW, ERROR_ACCESS_DENIED, BreaksOff},
        {Call::FindNextFileW, ERROR_PATH_NOT_FOUND, BreaksOff},
        {Call::FindNextFileW, ERROR_NOT_SUPPORTED, BreaksOff},
        {Call::FindNextFileW, ERROR_NOT_READY, BreaksOff},
        {Call::FindClose, ERROR_INVALID_HANDLE, NothingShows},
        {Call::CompareStringW, ERROR_INVALID_PARAMETER, NothingShows},
        {Call::CompareFileTime, CannotFail, nullptr},
        {Call::OpenFile, ERROR_ACCESS_DENIED, ListIsMissing},
        {Call::OpenFile, ERROR_PATH_NOT_FOUND, ListIsMissing},
        {Call::WriteFile, ERROR_DISK_FULL, ListIsCutOff},
        {Call::WriteFile, ERROR_NOT_READY, ListIsCutOff},
        {Call::CloseFile, ERROR_DISK_FULL, NothingShows},
        {Call::GetLocalTime, CannotFail, nullptr},
        {Call::FileTimeToSystemTime, ERROR_INVALID_PARAMETER, RowHasAnyTime},
        {Call::GetDateFormatW, ERROR_INVALID_PARAMETER, DateIsMissing},
        {Call::GetTimeFormatW, ERROR_INVALID_PARAMETER, TimeIsTheOneBefore},
        {Call::ShellExecuteExW, ERROR_FILE_NOT_FOUND, NothingShows},
    };
}

std::vector<Row> RowsOfAFailedScan() {
    std::vector<Row> rows;
    for (const Row& row : Rows()) {
        switch (row.call) {
            case Call::GetTempPathW:
            case Call::GetFileAttributesW:
            case Call::Sleep:
            case Call::GetTickCount:
            case Call::CharLowerW:
            case Call::GetFileAttributesExW:
                rows.push_back(row);
                break;
            default:
                break;
        }
    }
    return rows;
}

}  // namespace FailingJob
