#include "console/presets/PresetChoice.h"

#include "console/Errors.h"
#include "console/Input.h"
#include "console/presets/JsonText.h"
#include "console/presets/PresetFile.h"
#include "console/presets/StoredPresets.h"
#include "settings/Templates.h"

namespace Console {

Preset PresetByName(const std::wstring& keyOrName) {
    const StoredPresets presets = ReadPresets();
    return ValuesOf(FindPreset(presets, keyOrName));
}

Preset PresetOfTemplate(const std::wstring& numberOrName) {
    for (uint32_t number = 0; number < TemplateCount; ++number) {
        if (numberOrName == std::to_wstring(number) || numberOrName == TemplateNames[number]) {
            Preset preset{std::wstring()};
            ApplyTemplate(preset, number);
            return preset;
        }
    }
    throw Error(ExitCode::WrongUsage,
                L"there is no template '" + numberOrName + L"'; see 'tamblewickc presets templates'");
}

std::vector<Preset> PresetsOfFile(const std::wstring& file) {
    const std::string text = ReadInput(file, LargestPresetFile);
    try {
        return ParsePresetFile(text);
    } catch (const JsonError& error) {
        throw Error(ExitCode::Failed, InputName(file) + L" is no file of presets: " + FromUtf8(error.what()));
    }
}

Preset PresetOfFile(const std::wstring& file, const std::optional<std::wstring>& name) {
    const std::vector<Preset> presets = PresetsOfFile(file);
    std::vector<const Preset*> chosen;
    for (const Preset& preset : presets)
        if (!name || preset.Get(Preset::Name) == *name)
            chosen.push_back(&preset);
    const std::wstring named = name ? L" with the name '" + *name + L"'" : L"";
    if (chosen.empty())
        throw Error(ExitCode::WrongUsage, InputName(file) + L" has no preset" + named);
    if (chosen.size() > 1)
        throw Error(ExitCode::WrongUsage, InputName(file) + L" has several presets" + named +
                                              (name ? L"" : L"; choose one with --preset NAME"));
    Preset preset(*chosen.front());
    if (preset.Get(Opening::OpenMethod) == OpenMethod::Custom)
        preset.Get(Opening::OpenMethod) = OpenMethod::Nothing;
    return preset;
}

}  // namespace Console
