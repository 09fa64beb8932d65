// Fills a record from a registry key of the current user, in the form in which RegistrySerializer stored it.
// No key stays open between calls.
#pragma once

#include <string>

#include "settings/metatypes/Serializer.h"

namespace MetaTypes {

class RegistryDeserializer : public IDeserializer {
public:
    // The path of the key below HKEY_CURRENT_USER.
    explicit RegistryDeserializer(const std::wstring& path) : path_(path) {}

    // Tries every field; one that is missing, of another type or out of range keeps its value and turns the
    // result false. A list of strings alone is emptied before it is looked for. Throws utf8::invalid_utf16
    // for bad UTF-16 in a text that must be narrowed.
    bool Deserialize(const FieldRow* table, void* record) override;

private:
    std::wstring path_;
};

}  // namespace MetaTypes
