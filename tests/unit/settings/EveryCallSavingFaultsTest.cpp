// Storing and deleting while each use of each call fails: what cannot be written or deleted stays as it was,
// everything else is stored or deleted, and no error is reported.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <optional>
#include <set>
#include <stdexcept>

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

// One save, and what it leaves in an empty registry.
struct Save {
    std::wstring path;
    Snapshot writes;
};

template <typename Settings>
Save MakeSave(const std::wstring& path, const Settings& save) {
    const FakeWin::Unwatched unwatched;
    const TestSupport::TestRegistry empty;
    save();
    return {path, TestSupport::RegistryNow()};
}

std::wstring PathOf(const Preset& preset) {
    return preset.Key().empty() ? Root : Root + L"\\" + preset.Key();
}

Save SaveOf(const Preset& preset) {
    return MakeSave(
        PathOf(preset), [&] { EXPECT_TRUE(preset.Save()); });
}

Save SaveOf(const MainSettings& settings) {
    return MakeSave(
        Root, [&] { EXPECT_TRUE(settings.SaveMain()); });
}

std::vector<Save> SavesOf(const MainSettings& settings) {
    std::vector<Save> saves;
    for (const auto& preset : settings.Presets)
        saves.push_back(SaveOf(*preset));
    return saves;
}

// How a failure changes what the save that it strikes leaves.
using Change = void (*)(Save&, const Failure&);

struct Row {
    Call call;
    DWORD error;
    Change change;
    bool result;  // of the save
};

void NothingShows(Save&, const Failure&) {}

void ValueIsNotWritten(Save& save, const Failure& failure) {
    EXPECT_EQ(save.writes.erase(failure.subject), 1u);
}

// Without its top key nothing of a record is written.
void NothingBelowIsWritten(Save& save, const Failure& failure) {
    if (failure.subject == save.path)
        save.writes.clear();
    else
        TestSupport::TakeBack(save.writes, failure.subject, {});
}

const std::vector<Row> SaveRows = {
    {Call::RegCreateKeyExW, ERROR_ACCESS_DENIED, NothingBelowIsWritten, false},
    {Call::RegSetValueExW, ERROR_ACCESS_DENIED, ValueIsNotWritten, false},
    {Call::RegCloseKey, ERROR_INVALID_HANDLE, NothingShows, true},
};

// The save that the failure struck: the one whose path is the longest around the subject.
Save& Struck(std::vector<Save>& saves, const Failure& failure) {
    Save* struck = nullptr;
    for (Save& save : saves) {
        const bool around = (failure.subject + L"\\").starts_with(save.path + L"\\");
        if (around && (struck == nullptr || save.path.size() > struck->path.size()))
            struck = &save;
    }
    if (struck == nullptr)
        throw std::runtime_error("no save is concerned");
    return *struck;
}

// To make the saves takes the registry, so it is looked at first.
void ExpectStored(const Snapshot& before, const std::function<std::vector<Save>()>& makeSaves, const Row& row,
                  const Failure& failure) {
    const Snapshot actual = TestSupport::RegistryNow();
    EXPECT_EQ(FakeWin::Uses(Call::MessageBoxW), 0);
    std::vector<Save> saves = makeSaves();
    row.change(Struck(saves, failure), failure);
    Snapshot expected = before;
    for (const Save& save : saves)
        for (const auto& [path, value] : save.writes)
            expected[path] = value;
    EXPECT_EQ(TestSupport::Differences(actual, expected), "");
}

struct EveryCallOfStoring : testing::Test {
    // Two stored presets with other values than the defaults, and settings that hold them.
    void Prepare() {
        int32_t position = 0;
        for (const wchar_t* key : {L"one", L"two"}) {
            Preset preset(key);
            ChangeEveryValue(preset);
            preset.Get(Preset::Position) = ++position;
            EXPECT_TRUE(preset.Save());
        }
        settings_.emplace();
        EXPECT_TRUE(settings_->SaveMain());
        EXPECT_TRUE(settings_->LoadAll());
        before_ = TestSupport::RegistryNow();
    }

    void ExpectPositions(const std::vector<int32_t>& expected) const {
        std::vector<int32_t> positions;
        for (const auto& preset : settings_->Presets)
            positions.push_back(preset->Get(Preset::Position));
        EXPECT_EQ(positions, expected);
    }

    std::optional<MainSettings> settings_;
    Snapshot before_;
};

TEST_F(EveryCallOfStoring, KeepsOldValuesWhereASaveFails) {
    bool result = false;
    const auto prepare = [&] {
        Prepare();
        settings_->Presets.front()->Assign(Preset(L"default"));
    };
    const auto save = [&] { result = settings_->Presets.front()->Save(); };
    TestSupport::FailEveryCall<Row>({prepare, save}, SaveRows, [&](const Row& row, const Failure& failure) {
        EXPECT_EQ(result, row.result);
        ExpectStored(
            before_, [&] { return std::vector{SaveOf(*settings_->Presets.front())}; }, row, failure);
    });
}

TEST_F(EveryCallOfStoring, LeavesGapsWhereAFirstSaveFails) {
    bool result = false;
    const auto prepare = [&] { settings_.emplace(); };
    Preset preset(L"new");
    const auto save = [&] { result = preset.Save(); };
    TestSupport::FailEveryCall<Row>({prepare, save}, SaveRows, [&](const Row& row, const Failure& failure) {
        EXPECT_EQ(result, row.result);
        ExpectStored(
            {}, [&] { return std::vector{SaveOf(preset)}; }, row, failure);
    });
}

TEST_F(EveryCallOfStoring, KeepsOldValuesWhereTheSettingsFail) {
    bool result = false;
    const auto prepare = [&] {
        Prepare();
        for (const auto field : {MainSettings::WindowPosX, MainSettings::WindowPosY})
            settings_->Get(field) = -5;
        for (const auto field : {MainSettings::WindowWidth, MainSettings::WindowHeight})
            settings_->Get(field) = 5;
        settings_->Get(MainSettings::FirstRun) = false;
        settings_->Get(MainSettings::ConfirmExit) = true;
    };
    const auto save = [&] { result = settings_->SaveMain(); };
    TestSupport::FailEveryCall<Row>({prepare, save}, SaveRows, [&](const Row& row, const Failure& failure) {
        EXPECT_EQ(result, row.result);
        ExpectStored(
            before_, [&] { return std::vector{SaveOf(*settings_)}; }, row, failure);
    });
}

TEST_F(EveryCallOfStoring, RenumbersAllTheSame) {
    const auto prepare = [&] {
        Prepare();
        settings_->Presets.front()->Get(Preset::Position) = -1;
    };
    const Situation renumber{prepare, [&] { settings_->Renumber(); }};
    TestSupport::FailEveryCall<Row>(renumber, SaveRows, [&](const Row& row, const Failure& failure) {
        EXPECT_EQ(settings_->Presets.front()->Key(), L"one");
        ExpectPositions({2, 1});
        const auto saves = [&] { return SavesOf(*settings_); };
        ExpectStored(before_, saves, row, failure);
    });
}

// The values of the template are not stored yet: the registry has a preset with defaults.
TEST_F(EveryCallOfStoring, CreatesAPresetAllTheSame) {
    const Situation create{[&] { Prepare(); }, [&] { settings_->CreateFromTemplate(1); }};
    TestSupport::FailEveryCall<Row>(create, SaveRows, [&](const Row& row, const Failure& failure) {
        ExpectPositions({3, 2, 1});
        const auto savesWithDefaults = [&] {
            std::vector<Save> saves = SavesOf(*settings_);
            Preset stored(settings_->Presets.back()->Key());
            stored.Get(Preset::Position) = 1;
            EXPECT_NE(saves.back().writes, SaveOf(stored).writes);
            saves.back() = SaveOf(stored);
            return saves;
        };
        ExpectStored(before_, savesWithDefaults, row, failure);
    });
}

TEST_F(EveryCallOfStoring, StoresTheValuesOfATemplateAsFarAsItCan) {
    const auto prepare = [&] {
        Prepare();
        settings_->CreateFromTemplate(1);
        before_ = TestSupport::RegistryNow();
    };
    bool result = false;
    const auto save = [&] { result = settings_->Presets.back()->Save(); };
    TestSupport::FailEveryCall<Row>({prepare, save}, SaveRows, [&](const Row& row, const Failure& failure) {
        EXPECT_EQ(result, row.result);
        ExpectStored(
            before_, [&] { return std::vector{SaveOf(*settings_->Presets.back())}; }, row, failure);
    });
}

// ---- Deleting

// Subkeys in the registry's order.
std::vector<std::wstring> SubkeysOf(const Snapshot& registry, const std::wstring& key) {
    std::vector<std::wstring> subkeys;
    for (const auto& [path, unused] : registry) {
        const std::wstring prefix = key + L"\\";
        if (path.size() > prefix.size() && path.starts_with(prefix) && path.ends_with(L'\\') &&
            path.find(L'\\', prefix.size()) == path.size() - 1)
            subkeys.push_back(path.substr(0, path.size() - 1));
    }
    std::ranges::sort(subkeys);
    return subkeys;
}

// What is left of a key when one call fails: each key is opened, its subkeys are listed and deleted, and then
// it goes itself if it has none left. enumerated counts the names that were asked for.
void Delete(Snapshot& registry, const std::wstring& key, const Failure& failure, int& enumerated) {
    const auto strikes = [&](Call call) { return failure.call == call && failure.subject == key; };
    if (!strikes(Call::RegOpenKeyExW) && !strikes(Call::RegQueryInfoKeyW)) {
        std::vector<std::wstring> subkeys;
        for (const std::wstring& subkey : SubkeysOf(registry, key))
            if (failure.call != Call::RegEnumKeyExW || ++enumerated != failure.use)
                subkeys.push_back(subkey);
        for (const std::wstring& subkey : subkeys)
            Delete(registry, subkey, failure, enumerated);
    }
    if (!strikes(Call::RegDeleteKeyW) && SubkeysOf(registry, key).empty())
        TestSupport::TakeBack(registry, key, {});
}

TEST_F(EveryCallOfStoring, DeletesAKeyAsFarAsItCan) {
    struct DeleteRow {
        Call call;
        DWORD error;
    };
    const std::vector<DeleteRow> rows = {
        {Call::RegOpenKeyExW, ERROR_ACCESS_DENIED}, {Call::RegQueryInfoKeyW, ERROR_ACCESS_DENIED},
        {Call::RegEnumKeyExW, ERROR_MORE_DATA},     {Call::RegDeleteKeyW, ERROR_ACCESS_DENIED},
        {Call::RegCloseKey, ERROR_INVALID_HANDLE},
    };
    const auto remove = [&] { settings_->Presets.front()->DeleteKey(); };
    std::set<size_t> left;
    TestSupport::FailEveryCall<DeleteRow>(
        {[&] { Prepare(); }, remove}, rows, [&](const DeleteRow&, const Failure& failure) {
            Snapshot expected = before_;
            int enumerated = 0;
            if (failure.call != Call::RegOpenKeyExW || failure.subject != Root)
                Delete(expected, Root + L"\\two", failure, enumerated);
            EXPECT_EQ(TestSupport::Differences(TestSupport::RegistryNow(), expected), "");
            EXPECT_EQ(FakeWin::Uses(Call::MessageBoxW), 0);
            left.insert(expected.size());
        });
    EXPECT_GT(left.size(), 5u) << "the failures differ in what they leave";
    EXPECT_TRUE(left.contains(before_.size()));
}

}  // namespace
