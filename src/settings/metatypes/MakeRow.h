// Makes the rows of a field table from the declaration of the record, so that sizes, counts and type codes
// always agree with it: MakeRow<decltype(Record::member)>(name, offsetof(Record, member)).
#pragma once

#include <array>
#include <cstddef>

#include "settings/metatypes/FieldTable.h"
#include "settings/metatypes/Settings.h"

namespace MetaTypes {

// The element type, count and type code of a member. Character arrays are texts in fixed buffers.
template <typename Member>
struct MemberShape {
    using Element = Member;
    static constexpr uint32_t Count = 1;
    static constexpr TypeCode Type = TypeCodeOf<Member>();
};
template <typename T, size_t N>
struct MemberShape<std::array<T, N>> {
    using Element = T;
    static constexpr uint32_t Count = N;
    static constexpr TypeCode Type = TypeCodeOf<T>();
};
template <size_t N>
struct MemberShape<char[N]> {
    using Element = char;
    static constexpr uint32_t Count = N;
    static constexpr TypeCode Type = TypeCode::TextBuffer;
};
template <size_t N>
struct MemberShape<wchar_t[N]> {
    using Element = wchar_t;
    static constexpr uint32_t Count = N;
    static constexpr TypeCode Type = TypeCode::WideTextBuffer;
};

// Makes the row of a plain member or an array.
template <typename Member>
constexpr FieldRow MakeRow(const char* name, size_t offset) {
    using Shape = MemberShape<Member>;
    static_assert(Shape::Type != TypeCode::Enumeration, "an enumeration needs its table of names");
    return {name,   sizeof(typename Shape::Element), Shape::Count, static_cast<uint32_t>(offset), Shape::Type,
            nullptr};
}

// Makes the row of an enumeration or an array of enumerations.
template <typename Member>
constexpr FieldRow MakeRow(const char* name, size_t offset, const EnumRow* names) {
    using Shape = MemberShape<Member>;
    static_assert(Shape::Type == TypeCode::Enumeration, "only an enumeration has a table of names");
    return {name, sizeof(typename Shape::Element), Shape::Count, static_cast<uint32_t>(offset), Shape::Type,
            names};
}

// Makes the row of a record within the record.
template <typename Member>
constexpr FieldRow MakeRow(const char* name, size_t offset, const FieldRow* fields) {
    return {name, sizeof(Member), 1, static_cast<uint32_t>(offset), TypeCode::Section, fields};
}

// The last row of every field table.
inline constexpr FieldRow EndOfTable{nullptr, 0, 0, 0, TypeCode{}, nullptr};

}  // namespace MetaTypes
