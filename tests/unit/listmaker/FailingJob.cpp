#include "FailingJob.h"

#include <gtest/gtest.h>

#include "support/Text.h"
#include "writers/DateTime.h"

using TestSupport::Snapshot;

namespace FailingJob {
namespace {

constexpr wchar_t Program[] = L"C:\\Program Files\\viewer.exe";

void SetColumns(Preset& preset) {
    preset.Get(Columns::FolderColumns, 0) = FolderColumn::Name;
    preset.Get(Columns::FolderColumns, 1) = FolderColumn::LastTimeWritten;
    preset.Get(Columns::FileColumns, 0) = FileColumn::Filename;
    preset.Get(Columns::FileColumns, 1) = FileColumn::LastTimeWritten;
    for (const size_t position : {size_t{0}, size_t{1}}) {
        preset.Get(Columns::FolderEnabled, position) = true;
        preset.Get(Columns::FileEnabled, position) = true;
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
    preset.Get(Format::EnableUtf8) = false;
    preset.Get(Display::SearchSubfolders) = true;
    // Only beyond ASCII the system is asked for a lower case.
    preset.Get(Filter::ExcludedFolders) = {L"*\\\u00C9t\u00E9"};
    preset.Get(Sorting::FolderSortKeys, 0) = FolderSortKey::Name;
    preset.Get(Sorting::FileSortKeys, 0) = FileSortKey::LastTimeWritten;
    preset.Get(Sorting::FileSortKeys, 1) = FileSortKey::Name;
    preset.Get(Saving::SaveLocation) = SaveLocation::Temporary;
    preset.Get(Saving::OverwriteExisting) = false;
    preset.Get(Opening::OpenMethod) = method;
    preset.Get(Opening::CustomProgramPath) = Program;
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
    // The contents of the buffer for stamps.
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

void Expect(const Outcome& outcome, const Before& before) {
    ExpectFiles(outcome, before.files);
    ExpectOpened(outcome);
    EXPECT_EQ(TestSupport::Differences(TestSupport::RegistryNow(), before.registry), "");
}

}  // namespace FailingJob
