#include "console/presets/JsonSerializer.h"

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "console/Utf8.h"
#include "settings/metatypes/FieldTable.h"
#include "settings/metatypes/Memory.h"

namespace Console {

namespace {

using MetaTypes::EnumRow;
using MetaTypes::FieldRow;
using MetaTypes::LoadAs;
using MetaTypes::TypeCode;
using nlohmann::ordered_json;

bool WriteEnumeration(ordered_json& place, const EnumRow* rows, uint32_t value) {
    for (; rows->name; ++rows) {
        if (rows->value == value) {
            place = rows->name;
            return true;
        }
    }
    return false;
}

void WriteList(ordered_json& place, const std::vector<std::wstring>& list) {
    place = ordered_json::array();
    for (const std::wstring& text : list)
        place.push_back(ToUtf8(text));
}

bool WriteFields(ordered_json& object, const FieldRow* table, const std::byte* record);

// Writes one value: a plain field or an element of an array.
bool WriteValue(ordered_json& place, const FieldRow& row, const std::byte* field) {
    switch (row.type) {
        case TypeCode::Bool:
            place = LoadAs<bool>(field);
            return true;
        case TypeCode::UInt32:
            place = LoadAs<uint32_t>(field);
            return true;
        case TypeCode::Int32:
            place = LoadAs<int32_t>(field);
            return true;
        case TypeCode::Enumeration:
            return WriteEnumeration(place, static_cast<const EnumRow*>(row.subTable),
                                    LoadAs<uint32_t>(field));
        case TypeCode::Section:
            place = ordered_json::object();
            return WriteFields(place, static_cast<const FieldRow*>(row.subTable), field);
        case TypeCode::WideString:
            place = ToUtf8(*reinterpret_cast<const std::wstring*>(field));
            return true;
        case TypeCode::WideStringList:
            WriteList(place, *reinterpret_cast<const std::vector<std::wstring>*>(field));
            return true;
        default:
            return false;
    }
}

// Without a word for each element there is no array.
bool WriteArray(ordered_json& place, const FieldRow& row, const std::byte* field) {
    place = ordered_json::array();
    for (uint32_t index = 0; index < row.count; ++index) {
        if (!WriteValue(place.emplace_back(), row, field + size_t{index} * row.size)) {
            place = nullptr;
            return false;
        }
    }
    return true;
}

bool WriteFields(ordered_json& object, const FieldRow* table, const std::byte* record) {
    bool result = true;
    for (const FieldRow* row = table; row->name; ++row) {
        ordered_json value;
        const std::byte* field = record + row->offset;
        result &= row->count > 1 ? WriteArray(value, *row, field) : WriteValue(value, *row, field);
        if (!value.is_null())
            object[row->name] = std::move(value);
    }
    return result;
}

}  // namespace

bool JsonSerializer::Serialize(const FieldRow* table, const void* record) {
    return WriteFields(object_, table, static_cast<const std::byte*>(record));
}

}  // namespace Console
