// Tables for tests of the registry formats: a record that is one field named "Value" and nothing else.
#pragma once

#include "settings/metatypes/MakeRow.h"

enum class Fruit : uint32_t { Apple = 3, Pear = 1, Plum = 7 };

inline constexpr MetaTypes::EnumRow FruitNames[] = {{"Apple", 3}, {"Pear", 1}, {"Quince", 1}, {nullptr, 0}};

struct SingleField {
    MetaTypes::FieldRow rows[2];
};

template <typename Member>
constexpr SingleField SingleFieldOf() {
    if constexpr (MetaTypes::MemberShape<Member>::Type == MetaTypes::TypeCode::Enumeration)
        return {{MetaTypes::MakeRow<Member>("Value", 0, FruitNames), MetaTypes::EndOfTable}};
    else
        return {{MetaTypes::MakeRow<Member>("Value", 0), MetaTypes::EndOfTable}};
}

// A 32-bit field of a code that names no type, or a section of 32-bit fields.
constexpr SingleField SingleFieldOf(MetaTypes::TypeCode type, uint32_t count,
                                    const MetaTypes::FieldRow* fields = nullptr) {
    return {{{"Value", sizeof(uint32_t), count, 0, type, fields}, MetaTypes::EndOfTable}};
}
