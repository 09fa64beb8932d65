// Reads a record from a registry key of the current user, as RegistrySerializer writes it. No key stays open
// between calls.
#pragma once

#include <string>

#include "settings/metatypes/Serializer.h"

namespace MetaTypes {

class RegistryDeserializer : public IDeserializer {
public:
    // The path of the key below HKEY_CURRENT_USER.
    explicit RegistryDeserializer(const std::wstring& path) : path_(path) {}

    // Reads every field. A field that is missing, of another type or out of range keeps its value, and the
    // result is false; only a list of strings is cleared first. Throws utf8::invalid_utf16 for invalid UTF-16
    // in a text that must be narrowed.
    bool Deserialize(const FieldRow* table, void* record) override;

private:
    std::wstring path_;
};

}  // namespace MetaTypes
