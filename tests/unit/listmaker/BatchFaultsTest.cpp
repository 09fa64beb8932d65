// What the program does when it is started with a preset's key and a folder, from the registry to the opened
// list, in which each use of each call fails.
#include <gtest/gtest.h>

#include <optional>

#include "FailingJob.h"
#include "FakeWindows.h"
#include "listmaker/ListMakerWithUI.h"
#include "settings/MainSettings.h"
#include "support/ProgressDialog.h"
#include "winlib/Exception.h"

using FailingJob::Before;
using FailingJob::NothingShows;
using FailingJob::Outcome;
using FailingJob::Row;
using FakeWin::Call;
using TestSupport::Failure;

namespace {

constexpr wchar_t Key[] = L"test";

// As the program's batch mode does it, its last handler aside.
void MakeListOf(const std::wstring& key, const std::wstring& folder) {
    MainSettings settings;
    const Preset* preset = settings.FindPreset(key);
    if (preset == nullptr)
        return;
    ListMakerWithUI job(nullptr, *preset, folder);
    job.Start();
}

void NothingIsDone(Outcome& outcome, const Failure&) {
    outcome.listExists = false;
    outcome.opened = false;
    outcome.messages.clear();
}

void PresetHasDefaults(Outcome& outcome, const Failure&) {
    outcome.anyList = true;
}

// Without the root key there is no preset; without another one the preset keeps defaults.
void KeyIsNotOpened(Outcome& outcome, const Failure& failure) {
    if (failure.subject == L"HKCU\\Software\\Tamblewick")
        NothingIsDone(outcome, failure);
    else
        PresetHasDefaults(outcome, failure);
}

void StartThrows(Outcome& outcome, const Failure&) {
    outcome.thrown = L"Access is denied.\r\n";
}

std::vector<Row> Rows() {
    std::vector<Row> rows = FailingJob::Rows();
    const Row more[] = {
        {Call::GetModuleFileNameW, ERROR_ACCESS_DENIED, NothingShows},
        {Call::GetLongPathNameW, ERROR_ACCESS_DENIED, NothingShows},
        {Call::GetDesktopWindow, ERROR_ACCESS_DENIED, NothingShows},
        {Call::RegOpenKeyExW, ERROR_ACCESS_DENIED, KeyIsNotOpened},
        {Call::RegQueryInfoKeyW, ERROR_ACCESS_DENIED, NothingIsDone},
        {Call::RegEnumKeyExW, ERROR_MORE_DATA, NothingIsDone},
        {Call::RegQueryValueExW, ERROR_ACCESS_DENIED, PresetHasDefaults},
        {Call::RegCloseKey, ERROR_INVALID_HANDLE, NothingShows},
        {Call::DialogBoxParamW, ERROR_ACCESS_DENIED, StartThrows},
        {Call::LoadImageW, ERROR_RESOURCE_NAME_NOT_FOUND, NothingShows},
    };
    rows.insert(rows.end(), std::begin(more), std::end(more));
    return rows;
}

TEST(BatchFaults, EveryCallHasTheOutcomeThatIsSettledForIt) {
    std::optional<Before> before;
    std::wstring thrown;
    const auto prepare = [&] {
        FailingJob::Prepare();
        DefineProgressDialog();
        FailingJob::MakePreset().Save();
        before.emplace();
    };
    const auto run = [&] {
        thrown.clear();
        try {
            MakeListOf(Key, FailingJob::Folder);
        } catch (const WinLib::Exception& exception) {
            thrown = exception.Message;
        }
    };
    TestSupport::FailEveryCall<Row>({prepare, run}, Rows(), [&](const Row& row, const Failure& failure) {
        Outcome outcome;
        row.change(outcome, failure);
        FailingJob::Expect(outcome, *before);
        EXPECT_EQ(FakeWin::MessageBoxes().size(), outcome.messages.size());
        EXPECT_EQ(thrown, outcome.thrown);
        EXPECT_EQ(FakeWin::Uses(Call::PostMessageW), 0);
        EXPECT_EQ(FakeWin::OpenWindows(), 0);
    });
}

}  // namespace
