// A job in a world of its own that uses every call the program has for scanning, writing and opening, and
// what such a job must leave.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "listmaker/ListMaker.h"
#include "support/native/EveryCall.h"
#include "support/native/Snapshot.h"

namespace FailingJob {

inline constexpr wchar_t Folder[] = L"C:\\Photos";
inline constexpr wchar_t FirstName[] = L"C:\\Temp\\List of Photos.txt";
inline constexpr wchar_t SecondName[] = L"C:\\Temp\\List of Photos (2).txt";
inline constexpr wchar_t RelativeName[] = L"List of Photos.txt";  // in the drive's root
inline constexpr char OldList[] = "an older list";

// Saves into the temporary folder beside the older list, sorts by time and name, and opens the list so.
Preset MakePreset(OpenMethod method = OpenMethod::Default);

// The folder and the older list. Each question for the time finds that it is time for progress.
void Prepare();

// Files and registry before a run.
struct Before {
    TestSupport::Snapshot files = TestSupport::FilesNow();
    TestSupport::Snapshot registry = TestSupport::RegistryNow();
};

// One line of the list.
struct Line {
    std::wstring folder;  // whose entry it shows; empty for the lines at the top
    std::string text;     // all but the stamp
    std::string date;     // either both or none
    std::string time;

    std::string Whole() const { return text + (date.empty() ? "" : date + " ") + time; }
};

// What must be there after the run. At first all of it.
struct Outcome {
    explicit Outcome(OpenMethod method = OpenMethod::Default);

    OpenMethod openMethod;
    std::wstring listPath = SecondName;
    bool listExists = true;
    bool anyList = false;  // one list is made of which no more can be said
    std::vector<Line> lines;
    std::optional<size_t> lineOfAnyTime;  // the stamp of this line may be anything
    bool opened = true;                   // as the method says
    std::vector<std::wstring> messages;
    int endMessages = 1;  // that the owner is posted
    std::wstring thrown;  // the text of the exception that ends Start
};

// How a failure changes the outcome.
using Change = void (*)(Outcome&, const TestSupport::Failure&);

struct Row {
    FakeWin::Call call;
    DWORD error;
    Change change;
};

// What a flat list without headings holds in their place.
std::vector<Line> FlatLines();

// The rows of the calls that every job makes, with or without a listener.
std::vector<Row> Rows();

// Those of a scan that fails at its first folder.
std::vector<Row> RowsOfAFailedScan();

// For further rows.
void NothingShows(Outcome& outcome, const TestSupport::Failure& failure);

// Compares what there is now with the outcome; messages and the end of Start are left to the caller.
void Expect(const Outcome& outcome, const Before& before);

}  // namespace FailingJob
