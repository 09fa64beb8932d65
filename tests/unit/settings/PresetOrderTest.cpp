#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "settings/MainSettings.h"
#include "support/TestRegistry.h"

using namespace TestSupport;

namespace {

const std::wstring Root = L"Software\\Tamblewick";

using Order = std::vector<std::pair<std::wstring, int32_t>>;

Order OrderOf(const MainSettings& settings) {
    Order order;
    for (const auto& preset : settings.Presets)
        order.emplace_back(preset->Key(), preset->Get(Preset::Position));
    return order;
}

class PresetOrder : public testing::Test {
protected:
    void Store(const Order& order) const {
        for (const auto& [key, position] : order)
            registry_.SetDword(Root + L"\\" + key, L"Position", static_cast<uint32_t>(position));
    }

    void ExpectStored(const Order& order) const {
        for (const auto& [key, position] : order) {
            EXPECT_EQ(registry_.Get(Root + L"\\" + key, L"Position"),
                      DwordValue(static_cast<uint32_t>(position)))
                << std::string(key.begin(), key.end());
        }
    }

    const TestRegistry registry_;
};

TEST_F(PresetOrder, TheLargestPositionIsOnTop) {
    Store({{L"a", 2}, {L"b", 3}, {L"c", 1}, {L"d", -4}, {L"e", 70}});
    MainSettings settings;
    settings.LoadAll();
    EXPECT_EQ(OrderOf(settings), (Order{{L"e", 70}, {L"b", 3}, {L"a", 2}, {L"c", 1}, {L"d", -4}}));
}

TEST_F(PresetOrder, LoadingRenumbersNothing) {
    const Order order{{L"a", 20}, {L"b", 20}, {L"c", 10}};
    Store(order);
    MainSettings settings;
    settings.LoadAll();
    EXPECT_EQ(OrderOf(settings), order);
    ExpectStored(order);
}

TEST_F(PresetOrder, EqualPositionsKeepTheOrderOfTheRegistryUntilTheyAreRenumbered) {
    Store({{L"a", 3}, {L"b", 1}, {L"c", 3}, {L"d", 3}, {L"e", 4}});
    MainSettings settings;
    settings.LoadAll();
    EXPECT_EQ(OrderOf(settings), (Order{{L"e", 4}, {L"a", 3}, {L"c", 3}, {L"d", 3}, {L"b", 1}}));
    settings.Renumber();
    const Order renumbered{{L"e", 5}, {L"a", 4}, {L"c", 3}, {L"d", 2}, {L"b", 1}};
    EXPECT_EQ(OrderOf(settings), renumbered);
    ExpectStored(renumbered);
}

TEST_F(PresetOrder, RenumberSortsFirst) {
    Store({{L"a", 3}, {L"b", 2}, {L"c", 1}});
    MainSettings settings;
    settings.LoadAll();
    settings.Presets.back()->Get(Preset::Position) = 9;
    settings.Renumber();
    EXPECT_EQ(OrderOf(settings), (Order{{L"c", 3}, {L"a", 2}, {L"b", 1}}));
    ExpectStored(OrderOf(settings));
}

TEST_F(PresetOrder, RenumberSavesEachPresetInFull) {
    Store({{L"a", 3}});
    MainSettings settings;
    settings.LoadAll();
    settings.Presets.front()->Get(Preset::Name) = L"Renamed";
    settings.Renumber();
    EXPECT_EQ(registry_.Get(Root + L"\\a", L"Name"), StringValue(L"Renamed"));
    EXPECT_EQ(registry_.Subkeys(Root + L"\\a").size(), 7u);
}

TEST_F(PresetOrder, AMissingPositionIsTheBottom) {
    Store({{L"b", 1}, {L"c", 2}});
    registry_.CreateKey(Root + L"\\a");
    MainSettings settings;
    settings.LoadAll();
    EXPECT_EQ(OrderOf(settings), (Order{{L"c", 2}, {L"b", 1}, {L"a", 0}}));
    settings.Renumber();
    EXPECT_EQ(OrderOf(settings), (Order{{L"c", 3}, {L"b", 2}, {L"a", 1}}));
}

TEST_F(PresetOrder, AfterARemovalTheOthersCloseUp) {
    Store({{L"a", 3}, {L"b", 2}, {L"c", 1}});
    MainSettings settings;
    settings.LoadAll();
    const Preset& removed = **std::next(settings.Presets.begin());
    removed.DeleteKey();
    settings.Remove(removed);
    settings.Renumber();
    EXPECT_EQ(OrderOf(settings), (Order{{L"a", 2}, {L"c", 1}}));
    ExpectStored(OrderOf(settings));
    EXPECT_EQ(registry_.Subkeys(Root), (std::vector<std::wstring>{L"a", L"c"}));
}

TEST_F(PresetOrder, RemoveLeavesTheKey) {
    Store({{L"a", 2}, {L"b", 1}});
    MainSettings settings;
    settings.LoadAll();
    settings.Remove(*settings.Presets.front());
    EXPECT_EQ(OrderOf(settings), (Order{{L"b", 1}}));
    EXPECT_TRUE(registry_.KeyExists(Root + L"\\a"));
}

TEST_F(PresetOrder, ANewPresetPushesTheOthersUp) {
    Store({{L"a", 2}, {L"b", 1}});
    MainSettings settings;
    settings.LoadAll();
    const std::wstring key = settings.CreatePreset().Key();
    EXPECT_EQ(OrderOf(settings), (Order{{L"a", 3}, {L"b", 2}, {key, 1}}));
}

}  // namespace
