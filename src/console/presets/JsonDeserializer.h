// Reads a record from JSON as JsonSerializer writes it. Unlike reading from the registry it is strict: the
// JSON may come from others.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <string>

#include "settings/metatypes/Serializer.h"

namespace Console {

class JsonDeserializer : public MetaTypes::IDeserializer {
public:
    // The object must outlive the deserializer; path is its place, for messages.
    explicit JsonDeserializer(const nlohmann::json& object, const std::string& path = {})
        : object_(object), path_(path) {}

    // Reads the fields that the object has; the others keep their values. Throws JsonError for a field that
    // the table does not name, a value of another type or out of range, an unknown word (case matters), an
    // array of another length, a word that occurs twice in an array with a place for each word, a text with a
    // NUL, which the registry cannot hold, and an empty text in a list, which ends the list there. The record
    // may then have been changed in part.
    bool Deserialize(const MetaTypes::FieldRow* table, void* record) override;

private:
    const nlohmann::json& object_;
    const std::string path_;
};

}  // namespace Console
