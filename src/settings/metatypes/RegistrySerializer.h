// Stores a record under a registry key of the current user: every field a named value, every section and
// array a subkey, every enumeration by its word. No key stays open between calls.
#pragma once

#include <string>

#include "settings/metatypes/Serializer.h"

namespace MetaTypes {

class RegistrySerializer : public ISerializer {
public:
    // The path of the key below HKEY_CURRENT_USER.
    explicit RegistrySerializer(const std::wstring& path) : path_(path) {}

    // Creates the key if needed and tries every field; what fails is left as it stood and turns the result
    // false. Nothing is ever deleted. Throws utf8::invalid_utf8 for narrow text that is none.
    bool Serialize(const FieldRow* table, const void* record) override;

private:
    std::wstring path_;
};

}  // namespace MetaTypes
