// Small scans in which the first allocation fails, then the second, and so on to the last: each time the scan
// ends silently and leaks nothing.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "FakeWin.h"
#include "scanner/Listener.h"
#include "scanner/Scan.h"
#include "support/native/ScarceMemory.h"
#include "unit/scanner/TestTree.h"

using namespace Scanner;

namespace {

// Takes no memory, which the test could not distinguish from the scan's.
class CountingListener : public Listener {
public:
    void OnProgress(const std::wstring&, const std::wstring&) override { ++progress; }
    void OnError(const std::wstring&) override { ++errors; }
    AccessDeniedAnswer OnAccessDenied(const std::wstring&) override { return AccessDeniedAnswer::Continue; }
    bool IsCancelled() override { return false; }

    int progress = 0;
    int errors = 0;
};

struct Variant {
    const char* name;
    Options options;
};

std::vector<Variant> Variants() {
    Options plain;
    plain.recursive = true;

    Options sorted = plain;
    sorted.folderSortKeys = {{Comparison::Name, true}};
    sorted.fileSortKeys = {{Comparison::Extension, false}, {Comparison::Name, true}};
    sorted.naturalSort = true;

    Options flat = sorted;
    flat.flatten = flat.collectFolders = flat.collectFiles = true;
    flat.folderSortKeys = {{Comparison::Path, true}};

    Options filtered = sorted;
    filtered.searchPattern = L"*.a long extension:file*:*\u00C9*";
    filtered.excludedFolders = {L"C:\\Data\\A folder with a long name\\", L"*\\excluded", L"no/path"};
    filtered.attributeMask = SkipHidden;

    Options shallow = sorted;
    shallow.recursive = false;
    return {
        {"plain", plain}, {"sorted", sorted}, {"flat", flat}, {"filtered", filtered}, {"shallow", shallow}};
}

void AddTree() {
    for (const wchar_t* folder : {L"C:\\Data", L"C:\\Data\\zoo", L"C:\\Data\\A folder with a long name",
                                  L"C:\\Data\\A folder with a long name\\excluded",
                                  L"C:\\Data\\A folder with a long name\\nested\\deeper"}) {
        FakeWin::AddFolder(folder);
        for (const wchar_t* file : {L"\\file 10.a long extension", L"\\file 9.txt", L"\\b", L"\\a"})
            FakeWin::AddFile(std::wstring(folder) + file, 3);
    }
    FakeWin::AddFile(L"C:\\Data\\hidden.txt", 1, FILE_ATTRIBUTE_HIDDEN);
}

struct Attempt {
    bool scanned;
    bool struck;
    bool thrown;
};

// One scan in which this many allocations fail after the spared ones; a scan that goes well must give these
// lines.
Attempt ScanWith(Options options, CountingListener& listener, int spared, int failing,
                 const std::vector<std::wstring>& lines) {
    options.listener = &listener;
    const std::wstring path = L"C:\\Data\\";
    const long live = ScarceMemory::Live();
    Attempt attempt = {};
    {
        Result result;
        {
            const ScarceMemory scarce(1, spared, failing);
            attempt.scanned = Scan(result, options, path);
            attempt.struck = ScarceMemory::HasStruck();
            attempt.thrown = ScarceMemory::HasThrown();
        }
        if (attempt.scanned)
            EXPECT_EQ(Lines(result.root), lines);
    }
    EXPECT_EQ(ScarceMemory::Live(), live) << "what was taken is given back";
    EXPECT_EQ(FakeWin::LeftOpen(), "");
    return attempt;
}

std::vector<std::wstring> LinesOf(Options options) {
    CountingListener listener;
    options.listener = &listener;
    Result result;
    EXPECT_TRUE(Scan(result, options, L"C:\\Data"));
    return Lines(result.root);
}

// Returns how many attempts it took until no allocation failed any more.
int FailEveryAllocation(const Options& options, int failing, int errors) {
    const std::vector<std::wstring> lines = errors == 0 ? LinesOf(options) : std::vector<std::wstring>();
    for (int spared = 0;; ++spared) {
        SCOPED_TRACE(spared);
        CountingListener listener;
        const Attempt attempt = ScanWith(options, listener, spared, failing, lines);
        if (!attempt.struck) {
            EXPECT_EQ(attempt.scanned, errors == 0);
            EXPECT_EQ(listener.errors, errors);
            return spared;
        }
        // A sort does with less memory what it cannot do with more.
        EXPECT_EQ(attempt.scanned, !attempt.thrown && errors == 0);
        EXPECT_LE(listener.errors, errors) << "no word of the memory";
        if (testing::Test::HasFailure())
            return spared;
    }
}

constexpr int AllThatFollow = INT_MAX;

}  // namespace

TEST(EveryAllocation, EndsAScanInSilence) {
    for (const int tickStep : {0, 51}) {
        for (const Variant& variant : Variants()) {
            for (const int failing : {1, AllThatFollow}) {
                SCOPED_TRACE(testing::Message() << variant.name << ' ' << tickStep << ' ' << failing);
                FakeWin::Reset();
                AddTree();
                FakeWin::SetTickStep(static_cast<DWORD>(tickStep));
                EXPECT_GT(FailEveryAllocation(variant.options, failing, 0), 15);
            }
        }
    }
}

TEST(EveryAllocation, EndsAScanInSilenceThatGoesOnPastARefusedFolder) {
    for (const int failing : {1, AllThatFollow}) {
        FakeWin::Reset();
        AddTree();
        FakeWin::FailOn(FakeWin::Call::FindFirstFileExW, L"C:\\Data\\zoo", ERROR_ACCESS_DENIED);
        EXPECT_GT(FailEveryAllocation(Variants()[1].options, failing, 0), 15);
    }
}

TEST(EveryAllocation, TakesNothingButAWordFromAScanThatFails) {
    for (const int failing : {1, AllThatFollow}) {
        FakeWin::Reset();
        AddTree();
        FakeWin::FailFindNext(L"C:\\Data\\A folder with a long name\\nested", 2, ERROR_NOT_READY);
        EXPECT_GT(FailEveryAllocation(Variants()[1].options, failing, 1), 15);
    }
}
