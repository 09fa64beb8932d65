#include "settings/metatypes/RegistrySerializer.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "settings/metatypes/Bool32.h"
#include "settings/metatypes/FieldTable.h"
#include "settings/metatypes/Memory.h"
#include "settings/metatypes/Utf8.h"
#include "winlib/RegistryKey.h"

namespace MetaTypes {
namespace {

bool CreateKey(HKEY parent, const std::wstring& path, RegistryKey& key) {
    return RegCreateKeyExW(parent, path.c_str(), 0, nullptr, 0, KEY_WRITE, nullptr, key.Receive(), nullptr) ==
           ERROR_SUCCESS;
}

bool WriteText(const RegistryKey& key, const std::wstring& name, const std::wstring& text) {
    return RegSetValueExW(key.Get(), name.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                          static_cast<DWORD>((text.length() + 1) * sizeof(wchar_t))) == ERROR_SUCCESS;
}

bool WriteBinary(const RegistryKey& key, const std::wstring& name, const std::byte* bytes, DWORD size) {
    return RegSetValueExW(key.Get(), name.c_str(), 0, REG_BINARY, reinterpret_cast<const BYTE*>(bytes),
                          size) == ERROR_SUCCESS;
}

// Sign-extends signed numbers, zero-extends all others.
template <typename T>
bool WriteNumber(const RegistryKey& key, const std::wstring& name, const std::byte* field) {
    return key.WriteDword(name, static_cast<uint32_t>(LoadAs<T>(field)));
}

bool WriteEnumeration(const RegistryKey& key, const std::wstring& name, const EnumRow* rows, uint32_t value) {
    for (; rows->name; ++rows)
        if (rows->value == value)
            return WriteText(key, name, Widen(rows->name));
    return false;
}

bool WriteNarrowList(const RegistryKey& key, const std::wstring& name, const std::vector<std::string>& list) {
    std::vector<std::wstring> wide(list.size());
    std::ranges::transform(list, wide.begin(), Widen);
    return key.WriteStringList(name, wide);
}

// The text of a fixed buffer ends at its first NUL or at the buffer's end.
template <typename Char>
std::basic_string_view<Char> BufferText(const std::byte* field, uint32_t count) {
    const auto* buffer = reinterpret_cast<const Char*>(field);
    return {buffer, std::find(buffer, buffer + count, Char{})};
}

// Writes one value: a plain field or an element of an array.
bool WriteValue(const RegistryKey& key, const std::wstring& name, const FieldRow& row,
                const std::byte* field) {
    switch (row.type) {
        case TypeCode::Char:
        case TypeCode::Int8:
            return WriteNumber<int8_t>(key, name, field);
        case TypeCode::WideChar:
            return WriteNumber<wchar_t>(key, name, field);
        case TypeCode::Bool32:
            return key.WriteDword(name, LoadAs<Bool32>(field) != Bool32::False);
        case TypeCode::Bool:
            return WriteNumber<bool>(key, name, field);
        case TypeCode::UInt8:
            return WriteNumber<uint8_t>(key, name, field);
        case TypeCode::UInt16:
            return WriteNumber<uint16_t>(key, name, field);
        case TypeCode::Int16:
            return WriteNumber<int16_t>(key, name, field);
        case TypeCode::UInt32:
            return WriteNumber<uint32_t>(key, name, field);
        case TypeCode::Int32:
            return WriteNumber<int32_t>(key, name, field);
        case TypeCode::Float:
            return WriteBinary(key, name, field, sizeof(float));
        case TypeCode::Double:
            return WriteBinary(key, name, field, sizeof(double));
        case TypeCode::TextBuffer:
            return WriteText(key, name, Widen(BufferText<char>(field, row.count)));
        case TypeCode::WideTextBuffer:
            return WriteText(key, name, std::wstring(BufferText<wchar_t>(field, row.count)));
        case TypeCode::Enumeration:
            return WriteEnumeration(key, name, static_cast<const EnumRow*>(row.subTable),
                                    LoadAs<uint32_t>(field));
        case TypeCode::String:
            return WriteText(key, name, Widen(*reinterpret_cast<const std::string*>(field)));
        case TypeCode::WideString:
            return WriteText(key, name, *reinterpret_cast<const std::wstring*>(field));
        case TypeCode::StringList:
            return WriteNarrowList(key, name, *reinterpret_cast<const std::vector<std::string>*>(field));
        case TypeCode::WideStringList:
            return key.WriteStringList(name, *reinterpret_cast<const std::vector<std::wstring>*>(field));
        default:
            return false;
    }
}

bool WriteFields(const RegistryKey& key, const FieldRow* table, const std::byte* record);

// A section row with a count above 1 writes nothing and still succeeds.
bool WriteSection(const RegistryKey& parent, const std::wstring& name, const FieldRow& row,
                  const std::byte* field) {
    if (row.count > 1)
        return true;
    RegistryKey key;
    return CreateKey(parent.Get(), name, key) &&
           WriteFields(key, static_cast<const FieldRow*>(row.subTable), field);
}

bool WriteArray(const RegistryKey& parent, const std::wstring& name, const FieldRow& row,
                const std::byte* field) {
    RegistryKey key;
    if (!CreateKey(parent.Get(), name, key))
        return false;
    bool result = true;
    for (uint32_t index = 0; index < row.count; ++index)
        result &= WriteValue(key, std::to_wstring(index), row, field + size_t{index} * row.size);
    return result;
}

bool WriteFields(const RegistryKey& key, const FieldRow* table, const std::byte* record) {
    bool result = true;
    for (const FieldRow* row = table; row->name; ++row) {
        const std::wstring name = Widen(row->name);
        const std::byte* field = record + row->offset;
        if (row->type == TypeCode::Section)
            result &= WriteSection(key, name, *row, field);
        else if (row->count > 1 && row->type != TypeCode::TextBuffer && row->type != TypeCode::WideTextBuffer)
            result &= WriteArray(key, name, *row, field);
        else
            result &= WriteValue(key, name, *row, field);
    }
    return result;
}

}  // namespace

bool RegistrySerializer::Serialize(const FieldRow* table, const void* record) {
    RegistryKey key;
    return CreateKey(HKEY_CURRENT_USER, path_, key) &&
           WriteFields(key, table, static_cast<const std::byte*>(record));
}

}  // namespace MetaTypes
