// Writes a record to a registry key of the current user: each field as a named value, each section and array
// as a subkey, enumerations by name. No key stays open between calls.
#pragma once

#include <string>

#include "settings/metatypes/Serializer.h"

namespace MetaTypes {

class RegistrySerializer : public ISerializer {
public:
    // The path of the key below HKEY_CURRENT_USER.
    explicit RegistrySerializer(const std::wstring& path) : path_(path) {}

    // Creates the key if needed and writes every field. A field that cannot be written keeps its stored
    // value, and the result is false. Deletes nothing. Throws utf8::invalid_utf8 for a narrow text that is
    // not UTF-8.
    bool Serialize(const FieldRow* table, const void* record) override;

private:
    std::wstring path_;
};

}  // namespace MetaTypes
