#include "FailingJob.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "support/Text.h"
#include "writers/DateTime.h"

using FakeWin::Call;
using TestSupport::Failure;
using TestSupport::Snapshot;

namespace FailingJob {
namespace {

constexpr wchar_t Program[] = L"C:\\Program Files\\viewer.exe";
constexpr wchar_t RelativeName[] = L"List of Photos.txt";

void SetColumns(Preset& preset) {
    MetaTypes::Settings columns = preset.Section(Preset::Columns);
    using Field = Preset::ColumnsRow;
    columns.Get<FolderColumn>(Field::FolderColumns, 0) = FolderColumn::Name;
    columns.Get<FolderColumn>(Field::FolderColumns, 1) = FolderColumn::LastTimeWritten;
    columns.Get<FileColumn>(Field::FileColumns, 0) = FileColumn::Filename;
    columns.Get<FileColumn>(Field::FileColumns, 1) = FileColumn::LastTimeWritten;
    for (const uint32_t row : {Field::FolderEnabled, Field::FileEnabled}) {
        columns.Get<bool>(row, 0) = true;
        columns.Get<bool>(row, 1) = true;
    }
}

void AddFile(const std::wstring& path, int year) {
    FakeWin::AddFile(path, 7);
    const FILETIME time = FakeWin::MakeFileTime(year, 2, 3, 4, 5, year % 60);
    FakeWin::SetTimes(path, time, time, time);
}

void AddFolder(const std::wstring& path, int year) {
    FakeWin::AddFolder(path);
    const FILETIME time = FakeWin::MakeFileTime(year, 2, 3, 4, 5, year % 60);
    FakeWin::SetTimes(path, time, time, time);
}

// The lines with a stamp, in the order in which they are written.
std::vector<size_t> Stamps(const Outcome& outcome) {
    std::vector<size_t> stamps;
    for (size_t i = 0; i < outcome.lines.size(); ++i) {
        if (!outcome.lines[i].date.empty())
            stamps.push_back(i);
    }
    return stamps;
}

size_t Index(int use) {
    return static_cast<size_t>(use) - 1;
}

void FolderStaysEmpty(Outcome& outcome, const Failure& failure) {
    std::erase_if(outcome.lines, [&](const Line& line) {
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

// The folder whose enumeration takes this step: each takes one for every entry behind the first, which is
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

// What the one buffer for all stamps holds behind the date is the time that was formatted last.
void TimeIsTheOneBefore(Outcome& outcome, const Failure& failure) {
    const std::vector<size_t> stamps = Stamps(outcome);
    const size_t stamp = Index(failure.use);
    outcome.lines[stamps[stamp]].time = stamp == 0 ? "00:00:00" : outcome.lines[stamps[stamp - 1]].time;
}

std::string Text(const Outcome& outcome) {
    std::string text;
    for (const Line& line : outcome.lines)
        text += line.Whole() + "\r\n";
    return text;
}

// Gives both texts the same stamp in one line.
void DropStamp(std::string& text, const Line& line) {
    const size_t begin = text.find("\n" + line.text);
    ASSERT_NE(begin, std::string::npos) << text;
    const size_t stamp = begin + 1 + line.text.size();
    text.erase(stamp, text.find('\r', stamp) - stamp);
}

void ExpectFiles(const Outcome& outcome, const Snapshot& before) {
    // The current directory is the drive's root.
    const std::wstring path =
        outcome.listPath == RelativeName ? L"C:\\" + outcome.listPath : outcome.listPath;
    Snapshot expected = before;
    Snapshot actual = TestSupport::FilesNow();
    if (outcome.anyList) {
        ASSERT_EQ(FakeWin::WrittenFiles().size(), 1u);
        expected[FakeWin::WrittenFiles()[0]] = actual[FakeWin::WrittenFiles()[0]];
    } else if (outcome.listExists) {
        expected[path] = Text(outcome);
    }
    if (outcome.lineOfAnyTime) {
        DropStamp(expected[path], outcome.lines[*outcome.lineOfAnyTime]);
        DropStamp(actual[path], outcome.lines[*outcome.lineOfAnyTime]);
    }
    EXPECT_EQ(TestSupport::Differences(actual, expected), "");
    EXPECT_LE(FakeWin::WrittenFiles().size(), 1u);
}

void ExpectOpened(const Outcome& outcome) {
    const std::vector<FakeWin::ShellExecution> executions = FakeWin::ShellExecutions();
    const bool opened = outcome.opened && outcome.openMethod != OpenMethod::Nothing;
    ASSERT_EQ(executions.size(), opened ? 1u : 0u);
    if (!opened || outcome.anyList)
        return;
    const std::wstring list = L"\"" + outcome.listPath + L"\"";
    const bool byProgram = outcome.openMethod == OpenMethod::Custom;
    EXPECT_EQ(executions[0].file, byProgram ? L"\"" + std::wstring(Program) + L"\"" : list);
    EXPECT_EQ(executions[0].parameters, byProgram ? std::optional(list) : std::nullopt);
}

}  // namespace

Preset MakePreset(OpenMethod method) {
    Preset preset(L"test");
    SetColumns(preset);
    preset.Section(Preset::Format).Get<bool>(Preset::FormatRow::EnableUtf8) = false;
    preset.Section(Preset::Display).Get<bool>(Preset::DisplayRow::SearchSubfolders) = true;
    // Only beyond ASCII the system is asked for a lower case.
    preset.Section(Preset::Filter).Get<std::vector<std::wstring>>(Preset::FilterRow::ExcludedFolders) = {
        L"*\\\u00C9t\u00E9"};
    MetaTypes::Settings sorting = preset.Section(Preset::Sorting);
    using Field = Preset::SortingRow;
    sorting.Get<FolderSortKey>(Field::FolderSortKeys, 0) = FolderSortKey::Name;
    sorting.Get<FileSortKey>(Field::FileSortKeys, 0) = FileSortKey::LastTimeWritten;
    sorting.Get<FileSortKey>(Field::FileSortKeys, 1) = FileSortKey::Name;
    MetaTypes::Settings saving = preset.Section(Preset::Saving);
    saving.Get<SaveLocation>(Preset::SavingRow::SaveLocation) = SaveLocation::Temporary;
    saving.Get<bool>(Preset::SavingRow::OverwriteExisting) = false;
    MetaTypes::Settings opening = preset.Section(Preset::Opening);
    opening.Get<OpenMethod>(Preset::OpeningRow::OpenMethod) = method;
    opening.Get<std::wstring>(Preset::OpeningRow::CustomProgramPath) = Program;
    return preset;
}

void Prepare() {
    AddFolder(L"C:\\Photos\\beta", 2002);
    AddFolder(L"C:\\Photos\\beta\\deep", 2003);
    AddFile(L"C:\\Photos\\beta\\deep\\c.txt", 2004);
    AddFile(L"C:\\Photos\\beta\\d.txt", 2005);
    AddFolder(L"C:\\Photos\\alpha", 2001);
    AddFile(L"C:\\Photos\\alpha\\a.txt", 2006);
    AddFile(L"C:\\Photos\\g.txt", 2008);
    AddFile(L"C:\\Photos\\f.txt", 2008);
    AddFile(L"C:\\Photos\\e.txt", 2007);
    FakeWin::AddFile(FirstName, OldList);
    FakeWin::SetTickStep(51);
    // What stands in the buffer for stamps.
    FormatFileTime(FakeWin::MakeFileTime(1999, 1, 1));
}

Outcome::Outcome(OpenMethod method)
    : openMethod(method),
      lines({{L"", "Tamblewick 4.0.1", "", ""},
             {L"", "", "", ""},
             {L"", "Summary of path: C:\\Photos", "", ""},
             {L"", "Created: ", "2024-03-09", "17:05:09"},
             {L"", "", "", ""},
             {L"C:\\Photos", "alpha\t", "2001-02-03", "04:05:21"},
             {L"C:\\Photos\\alpha", "\ta.txt\t", "2006-02-03", "04:05:26"},
             {L"C:\\Photos", "beta\t", "2002-02-03", "04:05:22"},
             {L"C:\\Photos\\beta", "\tdeep\t", "2003-02-03", "04:05:23"},
             {L"C:\\Photos\\beta\\deep", "\t\tc.txt\t", "2004-02-03", "04:05:24"},
             {L"C:\\Photos\\beta", "\td.txt\t", "2005-02-03", "04:05:25"},
             {L"C:\\Photos", "e.txt\t", "2007-02-03", "04:05:27"},
             {L"C:\\Photos", "f.txt\t", "2008-02-03", "04:05:28"},
             {L"C:\\Photos", "g.txt\t", "2008-02-03", "04:05:28"}}) {}

std::vector<Line> FlatLines() {
    const std::vector<Line> grouped = Outcome().lines;
    std::vector<Line> lines(grouped.begin(), grouped.begin() + 5);
    lines.insert(lines.end(), {{L"C:\\Photos", "alpha\t", "2001-02-03", "04:05:21"},
                               {L"C:\\Photos", "beta\t", "2002-02-03", "04:05:22"},
                               {L"C:\\Photos\\beta", "deep\t", "2003-02-03", "04:05:23"},
                               {L"C:\\Photos", "", "", ""},
                               {L"C:\\Photos", "", "", ""},
                               {L"C:\\Photos", "", "", ""},
                               {L"C:\\Photos\\beta\\deep", "c.txt\t", "2004-02-03", "04:05:24"},
                               {L"C:\\Photos\\beta", "d.txt\t", "2005-02-03", "04:05:25"},
                               {L"C:\\Photos\\alpha", "a.txt\t", "2006-02-03", "04:05:26"},
                               {L"C:\\Photos", "e.txt\t", "2007-02-03", "04:05:27"},
                               {L"C:\\Photos", "f.txt\t", "2008-02-03", "04:05:28"},
                               {L"C:\\Photos", "g.txt\t", "2008-02-03", "04:05:28"}});
    return lines;
}

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

void Expect(const Outcome& outcome, const Before& before) {
    ExpectFiles(outcome, before.files);
    ExpectOpened(outcome);
    EXPECT_EQ(TestSupport::Differences(TestSupport::RegistryNow(), before.registry), "");
}

}  // namespace FailingJob
