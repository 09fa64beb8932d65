// Writes a record as JSON: each field under its name in the registry, a section as an object, an array as an
// array of its values, a list of texts as an array of texts, enumerations as the words of the registry.
// Numbers and booleans are those of JSON.
#pragma once

#include <nlohmann/json_fwd.hpp>

#include "settings/metatypes/Serializer.h"

namespace Console {

class JsonSerializer : public MetaTypes::ISerializer {
public:
    // Fields are added to this object in the order of the table.
    explicit JsonSerializer(nlohmann::ordered_json& object) : object_(object) {}

    // A field is left out if its enumeration has no word for its value or if its type occurs in no table of
    // this program; the result is then false. Half a surrogate pair in a text becomes U+FFFD.
    bool Serialize(const MetaTypes::FieldRow* table, const void* record) override;

private:
    nlohmann::ordered_json& object_;
};

}  // namespace Console
