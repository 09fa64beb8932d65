// The base of everything that is stored: a field table and the record it describes. Get takes a row's index
// and checks the row against the type asked for; Field.h makes that check at compile time. A Settings is also
// used by value as a view of one section.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <type_traits>
#include <typeinfo>
#include <vector>

#include "settings/metatypes/Bool32.h"
#include "settings/metatypes/FieldTable.h"

namespace MetaTypes {

class ISerializer;
class IDeserializer;

// The type code of T in a field table. No type has the two codes of text buffers: only the owner of the
// record accesses a buffer.
template <typename T>
constexpr TypeCode TypeCodeOf() {
    if constexpr (std::is_same_v<T, Bool32>) {
        return TypeCode::Bool32;
    } else if constexpr (std::is_enum_v<T>) {
        static_assert(sizeof(T) == sizeof(uint32_t), "enumerations are stored in 32 bits");
        return TypeCode::Enumeration;
    } else if constexpr (std::is_same_v<T, char>) {
        return TypeCode::Char;
    } else if constexpr (std::is_same_v<T, wchar_t>) {
        return TypeCode::WideChar;
    } else if constexpr (std::is_same_v<T, bool>) {
        return TypeCode::Bool;
    } else if constexpr (std::is_same_v<T, uint8_t>) {
        return TypeCode::UInt8;
    } else if constexpr (std::is_same_v<T, int8_t>) {
        return TypeCode::Int8;
    } else if constexpr (std::is_same_v<T, uint16_t>) {
        return TypeCode::UInt16;
    } else if constexpr (std::is_same_v<T, int16_t>) {
        return TypeCode::Int16;
    } else if constexpr (std::is_same_v<T, uint32_t>) {
        return TypeCode::UInt32;
    } else if constexpr (std::is_same_v<T, int32_t>) {
        return TypeCode::Int32;
    } else if constexpr (std::is_same_v<T, float>) {
        return TypeCode::Float;
    } else if constexpr (std::is_same_v<T, double>) {
        return TypeCode::Double;
    } else if constexpr (std::is_same_v<T, std::string>) {
        return TypeCode::String;
    } else if constexpr (std::is_same_v<T, std::wstring>) {
        return TypeCode::WideString;
    } else if constexpr (std::is_same_v<T, std::vector<std::string>>) {
        return TypeCode::StringList;
    } else {
        static_assert(std::is_same_v<T, std::vector<std::wstring>>, "no field table can hold this type");
        return TypeCode::WideStringList;
    }
}

class Settings {
public:
    Settings(const FieldRow* table, void* record) : table_(table), record_(static_cast<std::byte*>(record)) {}
    virtual ~Settings() = default;

    // Returns the single value in this row. Throws std::bad_cast if the row has another type or is an array.
    template <typename T>
    T& Get(uint32_t row) {
        return *static_cast<T*>(Single(row, TypeCodeOf<T>()));
    }
    template <typename T>
    const T& Get(uint32_t row) const {
        return *static_cast<const T*>(Single(row, TypeCodeOf<T>()));
    }

    // Returns an element of the array in this row. Throws std::bad_cast if the row has another type or is a
    // single value, or if index is not below the count.
    template <typename T>
    T& Get(uint32_t row, size_t index) {
        return *static_cast<T*>(Element(row, TypeCodeOf<T>(), index));
    }
    template <typename T>
    const T& Get(uint32_t row, size_t index) const {
        return *static_cast<const T*>(Element(row, TypeCodeOf<T>(), index));
    }

    // Returns a view of the section in this row, valid as long as the record. Throws std::bad_cast if the row
    // is not a section.
    Settings Section(uint32_t row);
    const Settings Section(uint32_t row) const;

    // Call the serializer with table and record. Return whether every field succeeded.
    bool Serialize(ISerializer& serializer) const;
    bool Deserialize(IDeserializer& deserializer);

private:
    void* Single(uint32_t row, TypeCode type) const;
    void* Element(uint32_t row, TypeCode type, size_t index) const;

    const FieldRow* table_;
    std::byte* record_;
};

}  // namespace MetaTypes
