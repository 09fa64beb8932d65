#include "console/presets/JsonDeserializer.h"

#include <algorithm>
#include <limits>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string_view>
#include <utility>
#include <vector>

#include "console/presets/JsonText.h"
#include "settings/metatypes/FieldTable.h"
#include "settings/metatypes/Memory.h"
#include "settings/metatypes/Utf8.h"

namespace Console {

namespace {

using MetaTypes::EnumRow;
using MetaTypes::FieldRow;
using MetaTypes::StoreAs;
using MetaTypes::TypeCode;
using nlohmann::json;

template <typename T>
void ReadNumber(const json& value, std::byte* field, const std::string& path) {
    using Limits = std::numeric_limits<T>;
    const bool fits = value.is_number_unsigned()
                          ? std::in_range<T>(value.get<uint64_t>())
                          : value.is_number_integer() && std::in_range<T>(value.get<int64_t>());
    if (!fits)
        throw JsonError(path, "expected a whole number from " + std::to_string(Limits::min()) + " to " +
                                  std::to_string(Limits::max()));
    StoreAs(field, value.get<T>());
}

void ReadBool(const json& value, std::byte* field, const std::string& path) {
    if (!value.is_boolean())
        throw JsonError(path, "expected true or false");
    StoreAs(field, value.get<bool>());
}

// The parser has checked the UTF-8.
std::wstring ReadText(const json& value, const std::string& path) {
    if (!value.is_string())
        throw JsonError(path, "expected a text");
    const auto& text = value.get_ref<const std::string&>();
    if (text.find('\0') != std::string::npos)
        throw JsonError(path, "a text must not contain the character NUL");
    return MetaTypes::Widen(text);
}

void ReadList(const json& value, std::vector<std::wstring>& list, const std::string& path) {
    if (!value.is_array())
        throw JsonError(path, "expected an array of texts");
    list.clear();
    list.reserve(value.size());
    for (const json& entry : value) {
        const std::string entryPath = PathOf(path, list.size());
        list.push_back(ReadText(entry, entryPath));
        if (list.back().empty())
            throw JsonError(entryPath, "the text must not be empty");
    }
}

std::string WordsOf(const EnumRow* rows) {
    std::string words = rows->name;
    while ((++rows)->name)
        words += std::string(", ") + rows->name;
    return words;
}

uint32_t CountOf(const EnumRow* rows) {
    uint32_t count = 0;
    while (rows[count].name)
        ++count;
    return count;
}

void ReadEnumeration(const json& value, const EnumRow* rows, std::byte* field, const std::string& path) {
    const EnumRow* row = rows;
    while (row->name && value != row->name)
        ++row;
    if (!row->name)
        throw JsonError(path, "expected one of " + WordsOf(rows));
    StoreAs(field, row->value);
}

void ReadFields(const json& object, const FieldRow* table, std::byte* record, const std::string& path);

// Reads one value: a plain field or an element of an array.
void ReadValue(const json& value, const FieldRow& row, std::byte* field, const std::string& path) {
    switch (row.type) {
        case TypeCode::Bool:
            ReadBool(value, field, path);
            break;
        case TypeCode::UInt32:
            ReadNumber<uint32_t>(value, field, path);
            break;
        case TypeCode::Int32:
            ReadNumber<int32_t>(value, field, path);
            break;
        case TypeCode::Enumeration:
            ReadEnumeration(value, static_cast<const EnumRow*>(row.subTable), field, path);
            break;
        case TypeCode::Section:
            ReadFields(value, static_cast<const FieldRow*>(row.subTable), field, path);
            break;
        case TypeCode::WideString:
            *reinterpret_cast<std::wstring*>(field) = ReadText(value, path);
            break;
        case TypeCode::WideStringList:
            ReadList(value, *reinterpret_cast<std::vector<std::wstring>*>(field), path);
            break;
        default:
            throw std::logic_error("a type that no table of this program uses");
    }
}

// Whether the array lists each word of its enumeration once, in any order.
bool IsOrder(const FieldRow& row) {
    return row.type == TypeCode::Enumeration &&
           row.count == CountOf(static_cast<const EnumRow*>(row.subTable));
}

void ReadArray(const json& value, const FieldRow& row, std::byte* field, const std::string& path) {
    if (!value.is_array() || value.size() != row.count)
        throw JsonError(path, "expected an array of " + std::to_string(row.count) + " values");
    for (uint32_t index = 0; index < row.count; ++index) {
        const std::string elementPath = PathOf(path, index);
        ReadValue(value[index], row, field + size_t{index} * row.size, elementPath);
        if (IsOrder(row) &&
            std::find(value.begin(), value.begin() + index, value[index]) != value.begin() + index)
            throw JsonError(elementPath, "'" + value[index].get<std::string>() + "' occurs twice");
    }
}

const FieldRow& FindRow(const FieldRow* table, std::string_view name, const std::string& path) {
    const FieldRow* row = table;
    while (row->name && row->name != name)
        ++row;
    if (!row->name)
        throw JsonError(path, "there is no such field");
    return *row;
}

void ReadFields(const json& object, const FieldRow* table, std::byte* record, const std::string& path) {
    if (!object.is_object())
        throw JsonError(path, "expected an object");
    for (const auto& [name, value] : object.items()) {
        const std::string fieldPath = PathOf(path, name);
        const FieldRow& row = FindRow(table, name, fieldPath);
        std::byte* field = record + row.offset;
        if (row.count > 1)
            ReadArray(value, row, field, fieldPath);
        else
            ReadValue(value, row, field, fieldPath);
    }
}

}  // namespace

bool JsonDeserializer::Deserialize(const FieldRow* table, void* record) {
    ReadFields(object_, table, static_cast<std::byte*>(record), path_);
    return true;
}

}  // namespace Console
