// What a scan does when the file system refuses something.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "FakeWin.h"
#include "scanner/Scan.h"
#include "unit/scanner/RecordingListener.h"
#include "unit/scanner/TestTree.h"

using namespace Scanner;
using FakeWin::Call;

namespace {

using Names = std::vector<std::wstring>;

class ScanFaults : public testing::Test {
protected:
    ScanFaults() {
        options.recursive = true;
        options.listener = &listener;
        FakeWin::AddFile(L"C:\\Data\\a\\x.txt");
        FakeWin::AddFile(L"C:\\Data\\b\\y.txt");
        FakeWin::AddFile(L"C:\\Data\\c\\z.txt");
    }
    ~ScanFaults() override { EXPECT_EQ(FakeWin::LeftOpen(), ""); }

    bool Run(const std::wstring& path = L"C:\\Data") { return Scan(result, options, path); }

    RecordingListener listener;
    Options options;
    Result result;
};

std::wstring PathNotFoundAt(const std::wstring& path) {
    return L"error: The folder '" + path +
           L"' does not exist or cannot be accessed by the application.\n"
           L"The listing proccess will be cancelled.";
}

std::wstring InvalidNameAt(const std::wstring& path) {
    return L"error: The path '" + path +
           L"' is invalid and cannot be searched.\n"
           L"The listing proccess will be cancelled.";
}

std::wstring UnknownErrorAt(const std::wstring& path) {
    return L"error: An unknown error has occurred when trying to search the path '" + path +
           L"'.\n"
           L"The listing proccess will be cancelled.";
}

}  // namespace

TEST_F(ScanFaults, EndsWithTheMessageOfTheError) {
    const std::wstring path = L"C:\\Data\\b";
    const struct {
        DWORD error;
        std::wstring message;
    } rows[] = {
        {ERROR_PATH_NOT_FOUND, PathNotFoundAt(path)}, {ERROR_INVALID_NAME, InvalidNameAt(path)},
        {ERROR_FILE_NOT_FOUND, UnknownErrorAt(path)}, {ERROR_NO_MORE_FILES, UnknownErrorAt(path)},
        {ERROR_DIRECTORY, UnknownErrorAt(path)},      {12345, UnknownErrorAt(path)},
    };
    for (const auto& row : rows) {
        FakeWin::FailOn(Call::FindFirstFileExW, path, row.error, 1);
        Result fresh;
        RecordingListener recording;
        options.listener = &recording;
        EXPECT_FALSE(Scan(fresh, options, L"C:\\Data")) << row.error;
        EXPECT_EQ(recording.calls, Names{row.message}) << row.error;
    }
}

TEST_F(ScanFaults, ReadsNoFurtherBehindAnError) {
    FakeWin::FailOn(Call::FindFirstFileExW, L"C:\\Data\\b", ERROR_PATH_NOT_FOUND);
    EXPECT_FALSE(Run());
    ASSERT_EQ(FakeWin::FindCalls().size(), 3u);
    EXPECT_EQ(FakeWin::FindCalls().back().query, L"\\\\?\\C:\\Data\\b\\*");
}

TEST_F(ScanFaults, ReportsNoProgressBehindAnError) {
    FakeWin::SetTickStep(100);
    FakeWin::FailOn(Call::FindFirstFileExW, L"C:\\Data", ERROR_PATH_NOT_FOUND);
    EXPECT_FALSE(Run());
    EXPECT_EQ(listener.calls, Names{PathNotFoundAt(L"C:\\Data")});
}

TEST_F(ScanFaults, CannotScanAFile) {
    FakeWin::AddFile(L"C:\\Data\\file");
    EXPECT_FALSE(Run(L"C:\\Data\\file"));
    EXPECT_EQ(listener.calls, Names{UnknownErrorAt(L"C:\\Data\\file")});
}

TEST_F(ScanFaults, PutsThePrefixInFrontOfANetworkPathAsWell) {
    FakeWin::AddFile(L"\\\\server\\share\\x.txt");
    EXPECT_FALSE(Run(L"\\\\server\\share\\"));
    ASSERT_EQ(FakeWin::FindCalls().size(), 1u);
    EXPECT_EQ(FakeWin::FindCalls()[0].query, L"\\\\?\\\\\\server\\share\\*");
    EXPECT_EQ(listener.calls, Names{InvalidNameAt(L"\\\\server\\share")});
}

TEST_F(ScanFaults, ScansADriveWhoseAttributesCannotBeHad) {
    EXPECT_TRUE(Run(L"C:\\"));
    EXPECT_EQ(FakeWin::FindCalls()[0].query, L"\\\\?\\C:\\*");
    EXPECT_TRUE(listener.Only(L"error").empty());
    const Folder& root = *result.root.folder;
    EXPECT_STREQ(root.name, L"C:");
    EXPECT_EQ(root.attributes, 0u);
    for (const FILETIME& time : {root.timeCreated, root.lastTimeAccessed, root.lastTimeWritten}) {
        EXPECT_EQ(time.dwLowDateTime, 0u);
        EXPECT_EQ(time.dwHighDateTime, 0u);
    }
    EXPECT_EQ(Find(result.root, L"Data").parent, &root);
}

TEST_F(ScanFaults, AsksForAttributesOfTheRootAlone) {
    EXPECT_TRUE(Run());
    EXPECT_EQ(FakeWin::Uses(Call::GetFileAttributesExW), 1);
    EXPECT_EQ(FakeWin::Uses(Call::GetFileAttributesW), 0);
}

TEST_F(ScanFaults, ReportsAnErrorInTheMiddleOfAnEnumeration) {
    for (const DWORD error : {DWORD{ERROR_ACCESS_DENIED}, DWORD{ERROR_PATH_NOT_FOUND},
                              DWORD{ERROR_INVALID_NAME}, DWORD{ERROR_FILE_NOT_FOUND}, DWORD{1117}}) {
        FakeWin::FailFindNext(L"C:\\Data\\b", 2, error);
        Result fresh;
        RecordingListener recording;
        options.listener = &recording;
        EXPECT_FALSE(Scan(fresh, options, L"C:\\Data"));
        EXPECT_EQ(recording.calls, Names{UnknownErrorAt(L"C:\\Data\\b")}) << error;
        EXPECT_EQ(FakeWin::LeftOpen(), "") << error;
    }
    EXPECT_EQ(FakeWin::FindCalls().back().query, L"\\\\?\\C:\\Data\\b\\*") << "c is not read any more";
}

TEST_F(ScanFaults, EndsWhenAnEnumerationYieldsNothing) {
    FakeWin::FailFindNext(L"C:\\Data\\a", 0, ERROR_NO_MORE_FILES);
    EXPECT_FALSE(Run());
    EXPECT_EQ(listener.calls, Names{UnknownErrorAt(L"C:\\Data\\a")});
}

TEST_F(ScanFaults, FlagsARefusedFolderAndGoesOn) {
    FakeWin::FailOn(Call::FindFirstFileExW, L"C:\\Data\\b", ERROR_ACCESS_DENIED);
    EXPECT_TRUE(Run());
    EXPECT_EQ(listener.Only(L"denied"), Names{L"denied: C:\\Data\\b"});
    EXPECT_EQ(Lines(result.root), (Names{L"a\\", L"a\\x.txt", L"b\\", L"c\\", L"c\\z.txt"}));
    const Folder& refused = Find(result.root, L"b");
    EXPECT_EQ(refused.flags, 1u);
    EXPECT_EQ(refused.size, 0u);
    EXPECT_EQ(refused.totalFolders + refused.totalFiles + refused.folderCount + refused.fileCount, 0u);
    EXPECT_EQ(Find(result.root, L"a").flags, 0u);
}

TEST_F(ScanFaults, FlagsARefusedRoot) {
    FakeWin::FailOn(Call::FindFirstFileExW, L"C:\\Data", ERROR_ACCESS_DENIED);
    EXPECT_TRUE(Run());
    EXPECT_EQ(listener.Only(L"denied"), Names{L"denied: C:\\Data"});
    EXPECT_EQ(result.root.folder->flags, 1u);
    EXPECT_TRUE(Lines(result.root).empty());
}

TEST_F(ScanFaults, AsksAboutRefusedFoldersAsAnswered) {
    const struct {
        AccessDeniedAnswer answer;
        bool result;
        Names questions;
    } rows[] = {
        {AccessDeniedAnswer::Continue, true, {L"denied: C:\\Data\\a", L"denied: C:\\Data\\c"}},
        {AccessDeniedAnswer::ContinueQuietly, true, {L"denied: C:\\Data\\a"}},
        {AccessDeniedAnswer::Cancel, false, {L"denied: C:\\Data\\a"}},
        {static_cast<AccessDeniedAnswer>(77), true, {L"denied: C:\\Data\\a", L"denied: C:\\Data\\c"}},
    };
    FakeWin::FailOn(Call::FindFirstFileExW, L"C:\\Data\\a", ERROR_ACCESS_DENIED);
    FakeWin::FailOn(Call::FindFirstFileExW, L"C:\\Data\\c", ERROR_ACCESS_DENIED);
    for (const auto& row : rows) {
        Result fresh;
        RecordingListener recording;
        recording.answer = row.answer;
        options.listener = &recording;
        EXPECT_EQ(Scan(fresh, options, L"C:\\Data"), row.result);
        EXPECT_EQ(recording.Only(L"denied"), row.questions);
        EXPECT_TRUE(recording.Only(L"error").empty());
        EXPECT_EQ(Find(fresh.root, L"a").flags, 1u);
        EXPECT_EQ(Find(fresh.root, L"c").flags, row.result ? 1u : 0u);
        EXPECT_EQ(recording.calls == row.questions, !row.result) << "nothing is asked after Cancel";
    }
}

TEST_F(ScanFaults, AsksAgainInTheNextScan) {
    FakeWin::FailOn(Call::FindFirstFileExW, L"C:\\Data\\a", ERROR_ACCESS_DENIED);
    listener.answer = AccessDeniedAnswer::ContinueQuietly;
    EXPECT_TRUE(Run());
    Result second;
    EXPECT_TRUE(Scan(second, options, L"C:\\Data"));
    EXPECT_EQ(listener.Only(L"denied").size(), 2u);
}

TEST_F(ScanFaults, SortsByCodeWhenTextCannotBeCompared) {
    FakeWin::AddFile(L"C:\\Names\\a_b");
    FakeWin::AddFile(L"C:\\Names\\B");
    FakeWin::AddFile(L"C:\\Names\\aZb");
    FakeWin::AddFile(L"C:\\Names\\ab");
    FakeWin::AddFile(L"C:\\Names\\\x00D6");
    FakeWin::AddFile(L"C:\\Names\\\x00E4");
    FakeWin::AddFile(L"C:\\Names\\a10");
    FakeWin::AddFile(L"C:\\Names\\a2");
    FakeWin::AddFile(L"C:\\Names\\A");
    FakeWin::Fail(Call::CompareStringW, ERROR_INVALID_FLAGS);
    options.fileSortKeys = {{Comparison::Name, true}};
    options.naturalSort = true;
    EXPECT_TRUE(Run(L"C:\\Names"));
    EXPECT_EQ(FileNames(result.root),
              (Names{L"A", L"a10", L"a2", L"a_b", L"ab", L"aZb", L"B", L"\x00D6", L"\x00E4"}));
}

TEST_F(ScanFaults, TiesByCodeWithoutRegardToCase) {
    FakeWin::AddFile(L"C:\\Names\\readme.txt");
    FakeWin::AddFile(L"C:\\Names\\README.doc");
    FakeWin::Fail(Call::CompareStringW, ERROR_INVALID_FLAGS);
    options.fileSortKeys = {{Comparison::Name, true}};
    EXPECT_TRUE(Run(L"C:\\Names"));
    EXPECT_EQ(FileNames(result.root), (Names{L"readme.txt", L"README.doc"}));
    options.fileSortKeys = {{Comparison::Name, true}, {Comparison::Extension, true}};
    Result byExtension;
    EXPECT_TRUE(Scan(byExtension, options, L"C:\\Names"));
    EXPECT_EQ(FileNames(byExtension.root), (Names{L"README.doc", L"readme.txt"}));
}

// A name that precedes another by code and follows it by language: the comparison that fails turns round
// what the sort has just seen, wherever in the sort it is.
TEST_F(ScanFaults, KeepsEveryEntryWhenOneComparisonTurnsRound) {
    const Names names = {L"\x00D6", L"zb", L"za", L"zd", L"zc"};
    for (const std::wstring& name : names) {
        FakeWin::AddFile(L"C:\\Names\\" + name);
        FakeWin::AddFolder(L"C:\\Names\\" + name + L" folder");
    }
    options.fileSortKeys = {{Comparison::Name, true}};
    options.folderSortKeys = {{Comparison::Name, true}};
    Result sorted;
    ASSERT_TRUE(Scan(sorted, options, L"C:\\Names"));
    const int uses = FakeWin::Uses(Call::CompareStringW);
    ASSERT_GT(uses, 10);
    for (int use = 1; use <= uses; ++use) {
        FakeWin::FailNth(Call::CompareStringW, use, ERROR_NOT_ENOUGH_MEMORY);
        Result broken;
        EXPECT_TRUE(Scan(broken, options, L"C:\\Names"));
        EXPECT_EQ(FakeWin::FaultsStruck(), use);
        EXPECT_EQ(SortedLines(broken.root), SortedLines(sorted.root)) << "use " << use;
    }
}
