// Naming the list while each use of each call fails: for each place of saving, with and without overwriting,
// with lists that are there already.
#include <gtest/gtest.h>

#include "FakeWin.h"
#include "listmaker/OutputName.h"
#include "settings/Preset.h"
#include "support/native/EveryCall.h"
#include "support/native/Snapshot.h"

using FakeWin::Call;
using TestSupport::Failure;
using TestSupport::Situation;
using TestSupport::Snapshot;

namespace {

constexpr wchar_t Listed[] = L"C:\\Data\\Photos";
constexpr int Existing = 3;  // so many names are taken in each folder

// The n-th name that is tried in a folder, which is empty or ends in a backslash.
std::wstring Name(const std::wstring& folder, int n) {
    return folder + L"List of Photos" + (n == 1 ? L"" : L" (" + std::to_wstring(n) + L")") + L".txt";
}

struct Place {
    SaveLocation location;
    bool overwrite;
    std::wstring folder;
};

const Place Places[] = {
    {SaveLocation::Temporary, false, L"C:\\Temp\\"},
    {SaveLocation::Temporary, true, L"C:\\Temp\\"},
    {SaveLocation::SamePath, false, L"C:\\Data\\Photos\\"},
    {SaveLocation::SamePath, true, L"C:\\Data\\Photos\\"},
    {SaveLocation::Custom, false, L"C:\\Lists\\"},
    {SaveLocation::Custom, true, L"C:\\Lists\\"},
    {static_cast<SaveLocation>(3), false, L""},
    {static_cast<SaveLocation>(3), true, L""},
};

Preset PresetOf(const Place& place) {
    Preset preset(L"test");
    auto saving = preset.Section(Preset::Saving);
    saving.Get(Saving::SaveLocation) = place.location;
    saving.Get(Saving::CustomFolderPath) = L"C:/Lists/";
    saving.Get(Saving::OverwriteExisting) = place.overwrite;
    return preset;
}

void Prepare() {
    for (const wchar_t* folder : {L"C:\\Temp\\", L"C:\\Data\\Photos\\", L"C:\\Lists\\", L"C:\\"})
        for (int n = 1; n <= Existing; ++n)
            FakeWin::AddFile(Name(folder, n), "old");
}

struct Row {
    Call call;
    DWORD error;
};

std::vector<Row> RowsOf(const Place& place) {
    std::vector<Row> rows = {{Call::GetFileAttributesW, ERROR_ACCESS_DENIED},
                             {Call::GetFileAttributesW, ERROR_NOT_READY}};
    if (place.location == SaveLocation::Temporary)
        rows.push_back({Call::GetTempPathW, ERROR_NOT_ENOUGH_MEMORY});
    return rows;
}

TEST(OutputNameEveryCall, LeadsToTheNameThatIsSettledForItsFailure) {
    for (const Place& place : Places) {
        SCOPED_TRACE(testing::Message() << static_cast<int>(place.location) << ' ' << place.overwrite);
        FakeWin::Reset();
        Prepare();
        const Snapshot before = TestSupport::FilesNow();
        const int firstFree = place.overwrite ? 1 : Existing + 1;
        std::wstring name;
        const Situation situation{Prepare, [&] { name = OutputName(PresetOf(place), Listed); }};
        const auto check = [&](const Row& row, const Failure& failure) {
            if (row.call == Call::GetTempPathW)
                EXPECT_EQ(name, Name(L"", firstFree)) << "relative to the current directory";
            else
                EXPECT_EQ(name, Name(place.folder, failure.use)) << "what cannot be examined is free";
            EXPECT_EQ(TestSupport::Differences(TestSupport::FilesNow(), before), "");
            EXPECT_TRUE(FakeWin::WrittenFiles().empty());
        };
        TestSupport::FailEveryCall<Row>(situation, RowsOf(place), check);
        Prepare();
        EXPECT_EQ(OutputName(PresetOf(place), Listed), Name(place.folder, firstFree));
        EXPECT_EQ(FakeWin::Uses(Call::GetFileAttributesW), firstFree);
    }
}

}  // namespace
