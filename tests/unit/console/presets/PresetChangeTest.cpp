#include "console/presets/PresetChange.h"

#include <gtest/gtest.h>

#include <set>
#include <thread>

#include "support/TestRegistry.h"
#include "support/settings/RecordFields.h"

using Console::PresetChange;

namespace {

Preset Named(const std::wstring& name) {
    Preset preset(L"");
    preset.Get(Preset::Name) = name;
    return preset;
}

struct PresetChanges : testing::Test {
    const TestSupport::TestRegistry registry;
};

TEST_F(PresetChanges, AreUndoneUnlessTheyAreCommitted) {
    std::wstring kept;
    {
        PresetChange change;
        kept = change.Add(Named(L"Kept"));
        change.Commit();
    }
    Preset stored(kept);
    EXPECT_TRUE(stored.Load());
    {
        PresetChange change;
        change.Add(Named(L"Dropped"));
        Preset renamed(stored);
        renamed.Get(Preset::Name) = L"Renamed";
        change.Write(change.Presets().front().preset, renamed);
    }
    {
        PresetChange change;
        change.Remove(change.Presets().front());
        EXPECT_FALSE(registry.KeyExists(L"Software\\Tamblewick\\" + kept));
    }
    EXPECT_EQ(registry.Subkeys(L"Software\\Tamblewick"), std::vector<std::wstring>{kept});
    Preset again(kept);
    EXPECT_TRUE(again.Load());
    EXPECT_EQ(TextsOf(again), TextsOf(stored));
}

TEST_F(PresetChanges, DrawAnotherKeyIfOneIsTaken) {
    std::set<std::wstring> keys;
    for (int i = 0; i < 3; ++i) {
        PresetChange change(7);
        keys.insert(change.Add(Named(L"x")));
        keys.insert(change.Add(Named(L"y")));
        change.Commit();
    }
    EXPECT_EQ(keys.size(), 6u);
    EXPECT_EQ(registry.Subkeys(L"Software\\Tamblewick").size(), 6u);
}

TEST_F(PresetChanges, OfManyThreadsLoseNoPreset) {
    constexpr int Threads = 20;
    std::vector<std::wstring> keys(Threads);
    std::vector<std::thread> threads;
    for (int i = 0; i < Threads; ++i) {
        threads.emplace_back([&, i] {
            PresetChange change;
            keys[static_cast<size_t>(i)] = change.Add(Named(std::to_wstring(i)));
            change.Commit();
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    std::set<int32_t> positions;
    const Console::StoredPresets presets = Console::ReadPresets();
    EXPECT_EQ(presets.size(), size_t{Threads});
    for (const Console::StoredPreset& stored : presets) {
        positions.insert(stored.preset.Get(Preset::Position));
        EXPECT_EQ(keys[static_cast<size_t>(std::stoi(stored.preset.Get(Preset::Name)))], stored.preset.Key());
    }
    EXPECT_EQ(positions.size(), size_t{Threads});
    EXPECT_EQ(*positions.rbegin(), Threads);
}

}  // namespace
