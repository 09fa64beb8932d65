// "presets export" and "presets import".
#include <cstdio>
#include <nlohmann/json.hpp>
#include <set>

#include "console/Errors.h"
#include "console/FullPath.h"
#include "console/Output.h"
#include "console/list/PartFile.h"
#include "console/presets/JsonText.h"
#include "console/presets/PresetChange.h"
#include "console/presets/PresetChoice.h"
#include "console/presets/PresetCommands.h"
#include "console/presets/PresetFile.h"
#include "console/presets/PresetJson.h"

namespace Console {

namespace {

// ---- export

// Returns whether the preset can be exported, which every preset can that import takes. Otherwise prints a
// warning.
bool CanTravel(const StoredPreset& stored) {
    if (stored.damaged) {
        WarnOfDamage(stored);
        return false;
    }
    try {
        Preset copy(stored.preset);
        SetFields(copy, FieldsOf(stored.preset));
        return true;
    } catch (const JsonError& error) {
        Warn(ToUtf8(L"the preset '" + stored.preset.Key() + L"' is not exported; set the field ") +
             error.what());
        return false;
    }
}

void WriteFile(const std::wstring& name, const std::string& text) {
    const std::wstring fullName = FullPath(name);
    PartFile file(fullName, false, L"file");
    if (std::fwrite(text.data(), 1, text.size(), file.Stream()) != text.size())
        throw Error(ExitCode::NotWritten,
                    L"the file '" + fullName + L"' could not be written; check the free space");
    file.Commit();
}

// Returns the presets that the arguments name; all if they name none.
std::vector<const StoredPreset*> Exported(const StoredPresets& presets,
                                          const std::vector<std::wstring>& names) {
    if (!names.empty())
        return FindPresets(presets, names);
    std::vector<const StoredPreset*> all;
    for (const StoredPreset& stored : presets)
        all.push_back(&stored);
    return all;
}

// ---- import

// Takes the programs to start from the presets, and names them.
void Distrust(std::vector<Preset>& presets) {
    for (Preset& preset : presets) {
        OpenMethod& method = preset.Get(Opening::OpenMethod);
        if (method != OpenMethod::Custom)
            continue;
        method = OpenMethod::Nothing;
        Warn(ToUtf8(L"the preset '" + preset.Get(Preset::Name) +
                    L"' would open its lists with the program '" + preset.Get(Opening::CustomProgramPath) +
                    L"'; its OpenMethod is now Nothing; use --trust if you know the program"));
    }
}

void RequireDifferentNames(const std::vector<Preset>& presets) {
    std::set<std::wstring> names;
    for (const Preset& preset : presets)
        if (!names.insert(preset.Get(Preset::Name)).second)
            throw Error(ExitCode::Failed, L"several presets of the file have the name '" +
                                              preset.Get(Preset::Name) + L"'; import them without --replace");
}

// Stores a preset and returns its key.
std::wstring Import(PresetChange& change, const Preset& values, const StoredPreset* replaced) {
    if (replaced == nullptr)
        return change.Add(values);
    const Preset& before = ValuesOf(*replaced);
    Preset changed(before);
    changed.Assign(values);
    change.Write(before, changed);
    return before.Key();
}

}  // namespace

ExitCode ExportPresets(const Options& arguments) {
    const StoredPresets presets = ReadPresets();
    const std::vector<const StoredPreset*> chosen = Exported(presets, arguments.operands);
    std::vector<const Preset*> exported;
    for (const StoredPreset* stored : chosen)
        if (CanTravel(*stored))
            exported.push_back(&stored->preset);
    const std::string text = FormatPresetFile(exported);
    if (arguments.Has("output") && arguments.Value("output") != L"-")
        WriteFile(arguments.Value("output"), text);
    else
        Print(text);
    return exported.size() == chosen.size() ? ExitCode::Complete : ExitCode::Incomplete;
}

// The last preset of the file is stored first, since a new preset comes above all others.
ExitCode ImportPresets(const Options& arguments) {
    std::vector<Preset> presets = PresetsOfFile(arguments.operands[0]);
    if (!arguments.Has("trust"))
        Distrust(presets);
    if (arguments.Has("replace"))
        RequireDifferentNames(presets);
    PresetChange change;
    std::string keys;
    for (auto preset = presets.rbegin(); preset != presets.rend(); ++preset) {
        const StoredPreset* replaced =
            arguments.Has("replace") ? FindByName(change.Presets(), preset->Get(Preset::Name)) : nullptr;
        keys.insert(0, ToUtf8(Import(change, *preset, replaced)) + "\n");
    }
    Print(keys);
    change.Commit();
    return ExitCode::Complete;
}

}  // namespace Console
