// How a scan opens its enumerations, and how it falls back where the cheap way is not supported.
#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "FakeWin.h"
#include "scanner/Scan.h"
#include "unit/scanner/RecordingListener.h"
#include "unit/scanner/TestTree.h"

using namespace Scanner;
using FakeWin::Call;

namespace {

// What was searched below C:\Data, with the level and the flags of the call.
using Search = std::tuple<std::wstring, FINDEX_INFO_LEVELS, DWORD>;

Search Cheap(const std::wstring& folder) {
    return {L"\\\\?\\C:\\" + folder + L"\\*", FindExInfoBasic, 2};
}
Search Plain(const std::wstring& folder) {
    return {L"\\\\?\\C:\\" + folder + L"\\*", FindExInfoStandard, 0};
}

class FolderSearchFaults : public testing::Test {
protected:
    FolderSearchFaults() {
        options.recursive = true;
        options.listener = &listener;
        FakeWin::AddFile(L"C:\\Data\\a\\x.txt");
        FakeWin::AddFile(L"C:\\Data\\b\\y.txt");
    }
    ~FolderSearchFaults() override { EXPECT_EQ(FakeWin::LeftOpen(), ""); }

    bool Run() { return Scan(result, options, L"C:\\Data"); }

    std::vector<Search> Searches() const {
        std::vector<Search> searches;
        for (const FakeWin::FindCall& call : FakeWin::FindCalls())
            searches.emplace_back(call.query, call.level, call.flags);
        return searches;
    }

    RecordingListener listener;
    Options options;
    Result result;
};

const std::wstring UnknownError =
    L"error: An unknown error has occurred when trying to search the path 'C:\\Data'.\n"
    L"The listing proccess will be cancelled.";

}  // namespace

TEST_F(FolderSearchFaults, SearchesTheCheapWay) {
    EXPECT_TRUE(Run());
    EXPECT_EQ(Searches(), (std::vector{Cheap(L"Data"), Cheap(L"Data\\a"), Cheap(L"Data\\b")}));
}

TEST_F(FolderSearchFaults, OpensNoSubfoldersUnlessRecursive) {
    options.recursive = false;
    EXPECT_TRUE(Run());
    EXPECT_EQ(Searches(), (std::vector{Cheap(L"Data")}));
}

TEST_F(FolderSearchFaults, FallsBackForTheRestOfTheScan) {
    FakeWin::FailNth(Call::FindFirstFileExW, 1, ERROR_NOT_SUPPORTED);
    EXPECT_TRUE(Run());
    EXPECT_EQ(Searches(),
              (std::vector{Cheap(L"Data"), Plain(L"Data"), Plain(L"Data\\a"), Plain(L"Data\\b")}));
    EXPECT_EQ(Lines(result.root), (std::vector<std::wstring>{L"a\\", L"a\\x.txt", L"b\\", L"b\\y.txt"}));
    EXPECT_TRUE(listener.Only(L"error").empty());
}

TEST_F(FolderSearchFaults, FallsBackInTheMiddleOfAScan) {
    FakeWin::FailOn(Call::FindFirstFileExW, L"C:\\Data\\a", ERROR_NOT_SUPPORTED, 1);
    EXPECT_TRUE(Run());
    EXPECT_EQ(Searches(),
              (std::vector{Cheap(L"Data"), Cheap(L"Data\\a"), Plain(L"Data\\a"), Plain(L"Data\\b")}));
}

TEST_F(FolderSearchFaults, BeginsTheNextScanTheCheapWay) {
    FakeWin::FailNth(Call::FindFirstFileExW, 1, ERROR_NOT_SUPPORTED);
    EXPECT_TRUE(Run());
    FakeWin::ClearLog();
    Result second;
    EXPECT_TRUE(Scan(second, options, L"C:\\Data"));
    EXPECT_EQ(Searches().front(), Cheap(L"Data"));
}

TEST_F(FolderSearchFaults, GivesUpIfThePlainWayIsNotSupportedEither) {
    FakeWin::Fail(Call::FindFirstFileExW, ERROR_NOT_SUPPORTED, 2);
    EXPECT_FALSE(Run());
    EXPECT_EQ(Searches(), (std::vector{Cheap(L"Data"), Plain(L"Data")}));
    EXPECT_EQ(listener.calls, std::vector{UnknownError});
}

TEST_F(FolderSearchFaults, FallsBackOnlyOnce) {
    FakeWin::FailNth(Call::FindFirstFileExW, 1, ERROR_NOT_SUPPORTED);
    FakeWin::FailOn(Call::FindFirstFileExW, L"C:\\Data\\b", ERROR_NOT_SUPPORTED);
    EXPECT_FALSE(Run());
    EXPECT_EQ(Searches(),
              (std::vector{Cheap(L"Data"), Plain(L"Data"), Plain(L"Data\\a"), Plain(L"Data\\b")}));
    EXPECT_EQ(listener.Only(L"error").size(), 1u);
}

TEST_F(FolderSearchFaults, ReportsTheErrorOfTheSecondCall) {
    const struct {
        DWORD error;
        bool result;
        std::wstring call;
    } rows[] = {
        {ERROR_ACCESS_DENIED, true, L"denied: C:\\Data\\b"},
        {ERROR_PATH_NOT_FOUND, false,
         L"error: The folder 'C:\\Data\\b' does not exist or cannot be accessed by the application.\n"
         L"The listing proccess will be cancelled."},
        {ERROR_INVALID_NAME, false,
         L"error: The path 'C:\\Data\\b' is invalid and cannot be searched.\n"
         L"The listing proccess will be cancelled."},
    };
    for (const auto& row : rows) {
        FakeWin::FailOn(Call::FindFirstFileExW, L"C:\\Data\\b", ERROR_NOT_SUPPORTED, 1);
        FakeWin::FailOn(Call::FindFirstFileExW, L"C:\\Data\\b", row.error, 1);
        Result fresh;
        RecordingListener recording;
        options.listener = &recording;
        EXPECT_EQ(Scan(fresh, options, L"C:\\Data"), row.result) << row.error;
        EXPECT_EQ(recording.calls.front(), row.call);
        EXPECT_EQ(Find(fresh.root, L"b").flags, row.error == ERROR_ACCESS_DENIED ? 1u : 0u);
    }
}
