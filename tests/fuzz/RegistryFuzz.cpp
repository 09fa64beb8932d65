// The settings on a registry that may hold anything.
#include <utf8.h>

#include <algorithm>
#include <set>

#include "FakeWin.h"
#include "fuzz/Check.h"
#include "fuzz/ExpectedSettings.h"
#include "fuzz/RandomRegistry.h"
#include "settings/MainSettings.h"
#include "support/Text.h"

using namespace Fuzz;
using TestSupport::TestRegistry;
using TestSupport::Utf8;

namespace {

std::wstring KeyOf(const Preset& preset) {
    return std::wstring(MainSettings::RootKey) + L"\\" + preset.Key();
}

bool BreaksReading(const ExpectedSettings& expected, const TestRegistry& registry) {
    return std::ranges::any_of(
        registry.Subkeys(MainSettings::RootKey),
        [&](const std::wstring& key) {
            Preset preset(key);
            return expected.BreaksReading(preset, KeyOf(preset));
        });
}

void CheckRead(MetaTypes::Settings& read, MetaTypes::Settings& defaults, const ExpectedSettings& expected,
               const std::wstring& key) {
    const std::vector<RecordField> fields = FieldsOf(read);
    const std::vector<RecordField> unread = FieldsOf(defaults);
    for (size_t i = 0; i < fields.size(); ++i)
        Check(TextOf(fields[i]) == expected.TextAfterReading(unread[i], key),
              "a value is read as it is stored, or keeps its default",
              Utf8(key + fields[i].key + L"\\" + fields[i].name + L": " + TextOf(fields[i])));
}

int32_t PositionOf(const Preset& preset) {
    return preset.Get(Preset::Position);
}

// The presets in the order of their keys.
std::vector<std::vector<std::wstring>> TextsByKey(MainSettings& settings) {
    std::vector<std::vector<std::wstring>> texts = {TextsOf(settings)};
    settings.Presets.sort([](const auto& a, const auto& b) { return a->Key() < b->Key(); });
    for (const auto& preset : settings.Presets)
        texts.push_back(TextsOf(*preset));
    return texts;
}

// Where the settings keep something.
std::set<std::wstring> KnownPlaces(MainSettings& settings) {
    std::set<std::wstring> places;
    const auto add = [&](MetaTypes::Settings& record, const std::wstring& key) {
        for (const RecordField& field : FieldsOf(record))
            places.insert(key + field.key + L"\\" + field.name);
    };
    add(settings, MainSettings::RootKey);
    for (const auto& preset : settings.Presets)
        add(*preset, KeyOf(*preset));
    return places;
}

void CheckNumbering(MainSettings& settings) {
    settings.Renumber();
    int32_t position = static_cast<int32_t>(settings.Presets.size());
    for (const auto& preset : settings.Presets)
        Check(PositionOf(*preset) == position--, "positions count from 1 at the bottom");
}

// After everything has been saved.
void CheckStored(MainSettings& settings, const ExpectedSettings& before, const TestRegistry& registry) {
    const std::set<std::wstring> known = KnownPlaces(settings);
    for (const auto& [place, value] : before.Values()) {
        const size_t nameBegin = place.rfind(L'\\');
        Check(known.contains(place) ||
                  registry.Get(place.substr(0, nameBegin), place.substr(nameBegin + 1)) == value,
              "an unknown value survives saving", Utf8(place));
    }

    MainSettings again;
    Check(again.LoadAll(), "what was saved is read in full");
    Check(TextsByKey(again) == TextsByKey(settings), "what was saved is read back equal");
}

void CheckSettings(Input& input) {
    const TestRegistry registry;
    FillRegistry(input, registry);
    const ExpectedSettings expected(registry, MainSettings::RootKey);

    MainSettings settings;
    try {
        settings.LoadAll();
    } catch (const utf8::invalid_utf16&) {
        Check(BreaksReading(expected, registry), "only a word that is no UTF-16 ends the reading");
        return;
    }
    Check(!BreaksReading(expected, registry), "a word that is no UTF-16 ends the reading");

    MainSettings defaults;
    CheckRead(settings, defaults, expected, MainSettings::RootKey);
    Check(settings.Presets.size() == registry.Subkeys(MainSettings::RootKey).size(),
          "each subkey is a preset");
    for (const auto& preset : settings.Presets) {
        Preset fresh(preset->Key());
        CheckRead(*preset, fresh, expected, KeyOf(*preset));
    }
    Check(std::ranges::is_sorted(settings.Presets, std::ranges::greater(),
                                 [](const auto& preset) { return PositionOf(*preset); }),
          "presets are sorted by falling position");

    Check(settings.SaveMain(), "the application's values can be saved");
    CheckNumbering(settings);
    CheckStored(settings, expected, registry);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    FakeWin::Reset();
    FakeWin::SetLogging(false);
    Input input(data, size);
    CheckSettings(input);
    Check(FakeWin::LeftOpen().empty(), "no key stays open", FakeWin::LeftOpen());
    return 0;
}
