#include "console/presets/PresetChoice.h"

#include <vector>

#include "console/Errors.h"
#include "settings/MainSettings.h"
#include "settings/Templates.h"

namespace Console {

Preset StoredPreset(const std::wstring& keyOrName) {
    MainSettings settings;
    settings.LoadAll();
    std::vector<const Preset*> named;
    for (const auto& preset : settings.Presets) {
        if (preset->Key() == keyOrName)
            return *preset;
        if (preset->Get(Preset::Name) == keyOrName)
            named.push_back(preset.get());
    }
    if (named.empty())
        throw Error(ExitCode::WrongUsage,
                    L"there is no preset '" + keyOrName + L"'; see 'tamblewickc presets list'");
    if (named.size() > 1)
        throw Error(ExitCode::WrongUsage, L"several presets have the name '" + keyOrName + L"'; use a key");
    return *named.front();
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

}  // namespace Console
