// Where a record can be stored: anything that walks a field table. The registry is the only place today, see
// RegistrySerializer.h.
#pragma once

namespace MetaTypes {

struct FieldRow;

class ISerializer {
public:
    virtual ~ISerializer() = default;

    // Stores the record that the table describes. True when every field was stored.
    virtual bool Serialize(const FieldRow* table, const void* record) = 0;
};

class IDeserializer {
public:
    virtual ~IDeserializer() = default;

    // Fills the record that the table describes. True when every field was read; what was not read keeps its
    // value.
    virtual bool Deserialize(const FieldRow* table, void* record) = 0;
};

}  // namespace MetaTypes
