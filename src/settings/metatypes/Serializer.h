// The interfaces that write and read a record by its field table. RegistrySerializer.h implements them for
// the registry.
#pragma once

namespace MetaTypes {

struct FieldRow;

class ISerializer {
public:
    virtual ~ISerializer() = default;

    // Writes the record that the table describes. Returns whether every field was written.
    virtual bool Serialize(const FieldRow* table, const void* record) = 0;
};

class IDeserializer {
public:
    virtual ~IDeserializer() = default;

    // Reads the record that the table describes. Returns whether every field was read; a field that was not
    // read keeps its value.
    virtual bool Deserialize(const FieldRow* table, void* record) = 0;
};

}  // namespace MetaTypes
