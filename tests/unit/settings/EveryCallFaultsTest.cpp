// Reading the settings while each use of each call fails: what cannot be read keeps its default, all else is
// as it is stored, and the registry stays untouched.
#include <gtest/gtest.h>

#include <memory>
#include <optional>

#include "PresetValues.h"
#include "settings/MainSettings.h"
#include "support/TestRegistry.h"
#include "support/native/EveryCall.h"
#include "support/native/Snapshot.h"

using FakeWin::Call;
using TestSupport::Failure;
using TestSupport::Situation;
using TestSupport::Snapshot;

namespace {

const std::wstring Root = L"HKCU\\Software\\Tamblewick";
const wchar_t* const Keys[] = {L"one", L"two"};
constexpr int RootValues = 6;

// What is stored and what the program holds without it, both as they look in the registry.
struct Images {
    Snapshot stored;
    Snapshot defaults;
};

void StoreDefaults() {
    MainSettings().SaveMain();
    for (const wchar_t* key : Keys)
        Preset(key).Save();
}

// Every value differs from its default; the second preset is above the first.
void StoreOtherValues() {
    MainSettings settings;
    settings.Get(MainSettings::WindowPosX) = 1;
    settings.Get(MainSettings::WindowPosY) = 2;
    settings.Get(MainSettings::WindowWidth) = 3;
    settings.Get(MainSettings::WindowHeight) = 4;
    settings.Get(MainSettings::FirstRun) = false;
    settings.Get(MainSettings::ConfirmExit) = true;
    settings.SaveMain();
    int32_t position = 0;
    for (const wchar_t* key : Keys) {
        Preset preset(key);
        ChangeEveryValue(preset);
        preset.Get(Preset::Position) = ++position;
        preset.Save();
    }
}

void ForgetPresets(Snapshot& snapshot) {
    for (const wchar_t* key : Keys)
        TestSupport::TakeBack(snapshot, Root + L"\\" + key, {});
}

void TakeRootValues(Snapshot& snapshot, const Snapshot& from) {
    int count = 0;
    for (auto& [path, value] : snapshot) {
        const bool isKey = path.ends_with(L'\\');
        if (!isKey && path.find(L'\\', Root.size() + 1) == std::wstring::npos) {
            value = from.at(path);
            ++count;
        }
    }
    EXPECT_EQ(count, RootValues);
}

// How a failure changes what the program holds.
using Change = void (*)(Snapshot& held, const Images&, const Failure&);

struct Row {
    Call call;
    DWORD error;
    Change change;
};

void NothingShows(Snapshot&, const Images&, const Failure&) {}

// A list of texts is emptied before anything is known about the stored one.
void ValueIsDefault(Snapshot& held, const Images& images, const Failure& failure) {
    if (failure.subject.ends_with(L"\\ExcludedFolders"))
        held[failure.subject] = "7 " + std::string(sizeof(wchar_t), '\0');
    else
        TestSupport::TakeBack(held, failure.subject, images.defaults);
}

// The root key is opened for its values at first and then for its subkeys.
void KeyIsDefault(Snapshot& held, const Images& images, const Failure& failure) {
    if (failure.subject != Root)
        TestSupport::TakeBack(held, failure.subject, images.defaults);
    else if (failure.use == 1)
        TakeRootValues(held, images.defaults);
    else
        ForgetPresets(held);
}

void NoPresets(Snapshot& held, const Images&, const Failure&) {
    ForgetPresets(held);
}

void OnePresetIsMissing(Snapshot& held, const Images&, const Failure& failure) {
    TestSupport::TakeBack(held, Root + L"\\" + Keys[failure.use - 1], {});
}

const std::vector<Row> LoadRows = {
    {Call::GetModuleFileNameW, ERROR_ACCESS_DENIED, NothingShows},
    {Call::GetLongPathNameW, ERROR_ACCESS_DENIED, NothingShows},
    {Call::GetDesktopWindow, ERROR_ACCESS_DENIED, NothingShows},
    {Call::RegOpenKeyExW, ERROR_ACCESS_DENIED, KeyIsDefault},
    {Call::RegOpenKeyExW, ERROR_FILE_NOT_FOUND, KeyIsDefault},
    {Call::RegQueryValueExW, ERROR_ACCESS_DENIED, ValueIsDefault},
    {Call::RegQueryInfoKeyW, ERROR_ACCESS_DENIED, NoPresets},
    {Call::RegEnumKeyExW, ERROR_MORE_DATA, OnePresetIsMissing},
    {Call::RegEnumKeyExW, ERROR_NO_MORE_ITEMS, OnePresetIsMissing},
    {Call::RegCloseKey, ERROR_INVALID_HANDLE, NothingShows},
};

struct EveryCallOfReading : testing::Test {
    EveryCallOfReading() {
        StoreDefaults();
        images_.defaults = TestSupport::RegistryNow();
        StoreOtherValues();
        images_.stored = TestSupport::RegistryNow();
    }

    // What the settings and their presets hold, shown by saving it in the place of what is stored.
    Snapshot Held(const MainSettings& settings) const {
        const FakeWin::Unwatched unwatched;
        registry_.DeleteKey(L"Software\\Tamblewick");
        settings.SaveMain();
        for (const auto& preset : settings.Presets)
            preset->Save();
        return TestSupport::RegistryNow();
    }

    void ExpectHeld(const Row& row, const Failure& failure, Snapshot expected) {
        EXPECT_EQ(TestSupport::Differences(TestSupport::RegistryNow(), images_.stored), "");
        EXPECT_EQ(FakeWin::Uses(Call::MessageBoxW), 0);
        row.change(expected, images_, failure);
        EXPECT_EQ(TestSupport::Differences(Held(*settings_), expected), "");
    }

    const TestSupport::TestRegistry registry_;
    Images images_;
    std::optional<MainSettings> settings_;
};

TEST_F(EveryCallOfReading, LeavesADefaultWhereLoadingFails) {
    bool result = false;
    const auto load = [&] { result = settings_.emplace().LoadAll(); };
    TestSupport::FailEveryCall<Row>(
        {StoreOtherValues, load}, LoadRows, [&](const Row& row, const Failure& f) {
            const bool ofRoot = (f.call == Call::RegOpenKeyExW && f.use == 1) ||
                                (f.call == Call::RegQueryValueExW &&
                                 f.subject.find(L'\\', Root.size() + 1) == std::wstring::npos);
            EXPECT_EQ(result, !ofRoot);
            int32_t above = INT32_MAX;
            for (const auto& preset : settings_->Presets) {
                EXPECT_LE(preset->Get(Preset::Position), above);
                above = preset->Get(Preset::Position);
            }
            ExpectHeld(row, f, images_.stored);
        });
}

void NotFound(Snapshot& held, const Images&, const Failure&) {
    ForgetPresets(held);
}

// The name that is looked for is the second one.
void NotFoundWithoutItsName(Snapshot& held, const Images&, const Failure& failure) {
    if (failure.use == 2)
        ForgetPresets(held);
}

void KeyIsDefaultOrNotFound(Snapshot& held, const Images& images, const Failure& failure) {
    if (failure.subject == Root)
        ForgetPresets(held);
    else
        TestSupport::TakeBack(held, failure.subject, images.defaults);
}

TEST_F(EveryCallOfReading, FindsAPresetAsFarAsItCanBeRead) {
    const std::vector<Row> rows = {
        {Call::RegOpenKeyExW, ERROR_ACCESS_DENIED, KeyIsDefaultOrNotFound},
        {Call::RegQueryInfoKeyW, ERROR_ACCESS_DENIED, NotFound},
        {Call::RegEnumKeyExW, ERROR_MORE_DATA, NotFoundWithoutItsName},
        {Call::RegQueryValueExW, ERROR_ACCESS_DENIED, ValueIsDefault},
        {Call::RegCloseKey, ERROR_INVALID_HANDLE, NothingShows},
        // The units of both keys are compared instead.
        {Call::CompareStringW, ERROR_INVALID_PARAMETER, NothingShows},
    };
    const auto prepare = [&] {
        StoreOtherValues();
        settings_.emplace();
    };
    const Preset* found = nullptr;
    const auto find = [&] { found = settings_->FindPreset(L"two"); };
    TestSupport::FailEveryCall<Row>({prepare, find}, rows, [&](const Row& row, const Failure& failure) {
        EXPECT_EQ(found, settings_->Presets.empty() ? nullptr : settings_->Presets.front().get());
        EXPECT_LE(settings_->Presets.size(), 1u);
        Snapshot expected = images_.stored;
        TakeRootValues(expected, images_.defaults);
        TestSupport::TakeBack(expected, Root + L"\\one", {});
        ExpectHeld(row, failure, expected);
    });
}

TEST_F(EveryCallOfReading, MakesSettingsWithoutDesktopAndPath) {
    struct Place {
        Call call;
        DWORD error;
        int32_t x;
        int32_t y;
        const wchar_t* module;
    };
    constexpr wchar_t Module[] = L"C:\\Program Files\\Tamblewick\\tamblewick.dll";
    const std::vector<Place> rows = {
        {Call::GetDesktopWindow, ERROR_ACCESS_DENIED, 100, 100, Module},
        {Call::GetModuleFileNameW, ERROR_ACCESS_DENIED, 222, 204, L".dll"},
        {Call::GetLongPathNameW, ERROR_ACCESS_DENIED, 222, 204, L".dll"},
    };
    const Situation situation{[] {}, [&] { settings_.emplace(); }};
    TestSupport::FailEveryCall<Place>(situation, rows, [&](const Place& row, const Failure&) {
        EXPECT_EQ(settings_->Get(MainSettings::WindowPosX), row.x);
        EXPECT_EQ(settings_->Get(MainSettings::WindowPosY), row.y);
        EXPECT_EQ(settings_->Shell.ModulePath, row.module);
        EXPECT_EQ(TestSupport::Differences(TestSupport::RegistryNow(), {}), "");
    });
}

}  // namespace
