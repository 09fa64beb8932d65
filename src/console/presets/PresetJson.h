// The fields of a preset as JSON, with the names, the nesting and the words of the registry.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>

class Preset;

namespace Console {

// Returns an object with the name, the position and a field for each section.
nlohmann::ordered_json FieldsOf(const Preset& preset);

// Sets the fields that the object has. Throws JsonError, with the path before the names of fields, for what
// JsonDeserializer refuses and for a PresetSearchPattern that is no filter. The preset is then unchanged.
void SetFields(Preset& preset, const nlohmann::json& fields, const std::string& path = {});

}  // namespace Console
