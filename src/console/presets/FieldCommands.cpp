// "presets get" and "presets set".
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "console/Errors.h"
#include "console/OneLine.h"
#include "console/Output.h"
#include "console/presets/JsonText.h"
#include "console/presets/PresetChange.h"
#include "console/presets/PresetCommands.h"
#include "console/presets/PresetJson.h"

namespace Console {

namespace {

using nlohmann::json;
using nlohmann::ordered_json;

// A field, or an element of one that is an array or a list.
struct Field {
    std::string path;
    json::json_pointer pointer;
    ordered_json value;
};

// Returns the fields of a preset in the order of the registry's tables.
std::vector<Field> AllFields(const Preset& preset) {
    std::vector<Field> fields;
    const auto add = [&](const json::json_pointer& parent, const std::string& path,
                         const ordered_json& object) {
        for (const auto& [name, value] : object.items())
            if (!value.is_object())
                fields.push_back({PathOf(path, name), parent / name, value});
    };
    const ordered_json all = FieldsOf(preset);
    add(json::json_pointer(), "", all);
    for (const auto& [name, section] : all.items())
        if (section.is_object())
            add(json::json_pointer() / name, name, section);
    return fields;
}

// Returns the field with this path, an element with an index in brackets. Throws Error.
Field FindField(const std::vector<Field>& fields, const std::string& path) {
    for (const Field& field : fields) {
        if (field.path == path)
            return field;
        if (!field.value.is_array() || !path.starts_with(field.path + "["))
            continue;
        for (size_t index = 0; index < field.value.size(); ++index)
            if (path == PathOf(field.path, index))
                return {path, field.pointer / index, field.value[index]};
    }
    throw Error(ExitCode::WrongUsage,
                "there is no field '" + path + "'; 'tamblewickc presets get PRESET' prints all fields");
}

// Returns the value in the form that "set" takes.
std::string TextOf(const ordered_json& value) {
    return value.is_string() ? value.get<std::string>() : value.dump();
}

json ParseValue(const Field& field, const std::string& text) {
    if (field.value.is_string())
        return text;
    try {
        return ParseJson(text);
    } catch (const JsonError& error) {
        throw JsonError(field.path, error.what());
    }
}

// Puts the value of an argument FIELD=VALUE into the object of changed fields. Of an array all elements are
// there.
void TakeAssignment(const std::string& argument, const std::vector<Field>& fields, json& changes) {
    const size_t sign = argument.find('=');
    if (sign == std::string::npos)
        throw UsageError(L"the argument '" + FromUtf8(argument) + L"' is not of the form FIELD=VALUE");
    const Field field = FindField(fields, argument.substr(0, sign));
    const Field whole = FindField(fields, field.path.substr(0, field.path.find('[')));
    if (!changes.contains(whole.pointer))
        changes[whole.pointer] = whole.value;
    changes[field.pointer] = ParseValue(field, argument.substr(sign + 1));
}

}  // namespace

ExitCode GetFields(const Options& arguments) {
    const StoredPresets presets = ReadPresets();
    const std::vector<Field> fields = AllFields(ValuesOf(FindPreset(presets, arguments.operands[0])));
    std::string lines;
    if (arguments.operands.size() == 2)
        lines = TextOf(FindField(fields, ToUtf8(arguments.operands[1])).value) + "\n";
    else
        for (const Field& field : fields)
            lines += field.path + "=" + OneLine(TextOf(field.value)) + "\n";
    Print(lines);
    return ExitCode::Complete;
}

ExitCode SetPresetFields(const Options& arguments) {
    PresetChange change;
    const Preset& preset = ValuesOf(FindPreset(change.Presets(), arguments.operands[0]));
    const std::vector<Field> fields = AllFields(preset);
    Preset changed = preset;
    try {
        json changes = json::object();
        for (size_t i = 1; i < arguments.operands.size(); ++i)
            TakeAssignment(ToUtf8(arguments.operands[i]), fields, changes);
        SetFields(changed, changes);
    } catch (const JsonError& error) {
        throw Error(ExitCode::WrongUsage, std::string(error.what()));
    }
    change.Write(preset, changed);
    change.Commit();
    return ExitCode::Complete;
}

}  // namespace Console
