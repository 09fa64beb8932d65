#include "console/presets/PresetJson.h"

#include <nlohmann/json.hpp>
#include <utility>

#include "console/presets/JsonDeserializer.h"
#include "console/presets/JsonSerializer.h"
#include "console/presets/JsonText.h"
#include "settings/Preset.h"
#include "settings/SearchFilters.h"

namespace Console {

using namespace nlohmann::literals;

nlohmann::ordered_json FieldsOf(const Preset& preset) {
    nlohmann::ordered_json fields;
    JsonSerializer serializer(fields);
    preset.Serialize(serializer);
    return fields;
}

// A list uses the number of the filter as an index.
void SetFields(Preset& preset, const nlohmann::json& fields, const std::string& path) {
    Preset changed(preset);
    JsonDeserializer deserializer(fields, path);
    changed.Deserialize(deserializer);
    const auto pattern = static_cast<uint32_t>(changed.Get(Filter::PresetSearchPattern));
    if (fields.contains("/Filter/PresetSearchPattern"_json_pointer) && pattern >= SearchFilters.size())
        throw JsonError(PathOf(PathOf(path, "Filter"), "PresetSearchPattern"),
                        "expected a whole number from 0 to " + std::to_string(SearchFilters.size() - 1));
    const int32_t position = changed.Get(Preset::Position);
    preset.Assign(changed);
    preset.Get(Preset::Position) = position;
}

}  // namespace Console
