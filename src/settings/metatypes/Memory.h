// Typed access to the bytes of a field. Copies, since an enumeration must not be accessed through a pointer
// to its number.
#pragma once

#include <cstddef>
#include <cstring>

namespace MetaTypes {

template <typename T>
T LoadAs(const std::byte* field) {
    T value;
    std::memcpy(&value, field, sizeof(value));
    return value;
}

template <typename T>
void StoreAs(std::byte* field, T value) {
    std::memcpy(field, &value, sizeof(value));
}

}  // namespace MetaTypes
