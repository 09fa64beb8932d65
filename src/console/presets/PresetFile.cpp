#include "console/presets/PresetFile.h"

#include <nlohmann/json.hpp>

#include "console/Utf8.h"
#include "console/presets/JsonText.h"
#include "console/presets/PresetJson.h"

namespace Console {

namespace {

using nlohmann::json;
using nlohmann::ordered_json;

constexpr const char* FormatName = "tamblewick-presets";
constexpr int Version = 1;

const json& FieldOf(const json& file, const char* name) {
    const auto field = file.find(name);
    if (field == file.end())
        throw JsonError(name, "the field is missing");
    return *field;
}

void CheckHead(const json& file) {
    if (!file.is_object())
        throw JsonError("", "expected an object");
    if (FieldOf(file, "format") != FormatName)
        throw JsonError("format", std::string("expected '") + FormatName + "'");
    if (FieldOf(file, "version") != Version)
        throw JsonError("version", "expected " + std::to_string(Version));
    for (const auto& [name, value] : file.items())
        if (name != "format" && name != "version" && name != "presets")
            throw JsonError(PathOf("", name), "there is no such field");
}

Preset ParsePreset(json& fields, const std::string& path) {
    Preset preset(L"");
    if (fields.is_object()) {
        fields.erase("Key");
        fields.erase("Position");
    }
    SetFields(preset, fields, path);
    return preset;
}

}  // namespace

std::string FormatPresetFile(std::span<const Preset* const> presets) {
    ordered_json file;
    file["format"] = FormatName;
    file["version"] = Version;
    ordered_json& list = file["presets"] = ordered_json::array();
    for (const Preset* preset : presets) {
        ordered_json& entry = list.emplace_back();
        entry["Key"] = ToUtf8(preset->Key());
        entry.update(FieldsOf(*preset));
    }
    return file.dump(2) + "\n";
}

std::vector<Preset> ParsePresetFile(std::string_view text) {
    json file = ParseJson(text);
    CheckHead(file);
    FieldOf(file, "presets");
    json& list = file["presets"];
    if (!list.is_array())
        throw JsonError("presets", "expected an array");
    if (list.size() > MostPresets)
        throw JsonError("presets", "a file can have at most " + std::to_string(MostPresets) + " presets");
    std::vector<Preset> presets;
    presets.reserve(list.size());
    for (json& entry : list)
        presets.push_back(ParsePreset(entry, PathOf("presets", presets.size())));
    return presets;
}

}  // namespace Console
