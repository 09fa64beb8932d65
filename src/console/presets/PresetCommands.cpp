// Listing, making, renaming and removing presets.
#include "console/presets/PresetCommands.h"

#include <nlohmann/json.hpp>

#include "console/Errors.h"
#include "console/OneLine.h"
#include "console/Output.h"
#include "console/presets/PresetChange.h"
#include "console/presets/PresetChoice.h"
#include "settings/Templates.h"

namespace Console {

namespace {

std::string JsonLine(const StoredPreset& stored) {
    nlohmann::ordered_json line = {{"key", ToUtf8(stored.preset.Key())},
                                   {"position", stored.preset.Get(Preset::Position)},
                                   {"name", ToUtf8(stored.preset.Get(Preset::Name))}};
    if (stored.damaged)
        line["damaged"] = true;
    return line.dump() + "\n";
}

std::string TabbedLine(const Preset& preset) {
    return ToUtf8(preset.Key()) + "\t" + std::to_string(preset.Get(Preset::Position)) + "\t" +
           OneLine(ToUtf8(preset.Get(Preset::Name))) + "\n";
}

// Stores a preset and prints its key.
ExitCode Store(PresetChange& change, const Preset& values) {
    Print(ToUtf8(change.Add(values)) + "\n");
    change.Commit();
    return ExitCode::Complete;
}

}  // namespace

ExitCode ListPresets(const Options& arguments) {
    std::string lines;
    for (const StoredPreset& stored : ReadPresets()) {
        lines += arguments.Has("json") ? JsonLine(stored) : TabbedLine(stored.preset);
        if (stored.damaged)
            WarnOfDamage(stored);
    }
    Print(lines);
    return ExitCode::Complete;
}

ExitCode ListTemplates(const Options&) {
    std::string lines;
    for (uint32_t number = 0; number < TemplateCount; ++number)
        lines += std::to_string(number) + "\t" + ToUtf8(TemplateNames[number]) + "\n";
    Print(lines);
    return ExitCode::Complete;
}

ExitCode NewPreset(const Options& arguments) {
    Preset values = PresetOfTemplate(arguments.operands[0]);
    if (arguments.operands.size() == 2)
        values.Get(Preset::Name) = arguments.operands[1];
    PresetChange change;
    return Store(change, values);
}

ExitCode DuplicatePreset(const Options& arguments) {
    PresetChange change;
    Preset values = ValuesOf(FindPreset(change.Presets(), arguments.operands[0]));
    if (arguments.operands.size() == 2)
        values.Get(Preset::Name) = arguments.operands[1];
    else
        values.Get(Preset::Name).insert(0, L"Copy of ");
    return Store(change, values);
}

ExitCode RenamePreset(const Options& arguments) {
    PresetChange change;
    const Preset& preset = ValuesOf(FindPreset(change.Presets(), arguments.operands[0]));
    Preset renamed = preset;
    renamed.Get(Preset::Name) = arguments.operands[1];
    change.Write(preset, renamed);
    change.Commit();
    return ExitCode::Complete;
}

// All are looked up before the first is removed.
ExitCode RemovePresets(const Options& arguments) {
    PresetChange change;
    for (const StoredPreset* stored : FindPresets(change.Presets(), arguments.operands))
        change.Remove(*stored);
    change.Commit();
    return ExitCode::Complete;
}

}  // namespace Console
