#include "settings/metatypes/RegistryDeserializer.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>
#include <utility>
#include <vector>

#include "settings/metatypes/Bool32.h"
#include "settings/metatypes/FieldTable.h"
#include "settings/metatypes/Memory.h"
#include "settings/metatypes/Utf8.h"
#include "winlib/RegistryKey.h"

namespace MetaTypes {
namespace {

bool OpenKey(HKEY parent, const std::wstring& path, RegistryKey& key) {
    return RegOpenKeyExW(parent, path.c_str(), 0, KEY_READ, key.Receive()) == ERROR_SUCCESS;
}

bool ReadDword(const RegistryKey& key, const std::wstring& name, uint32_t& value) {
    DWORD type = 0;
    DWORD size = sizeof(value);
    return RegQueryValueExW(key.Get(), name.c_str(), nullptr, &type, reinterpret_cast<BYTE*>(&value),
                            &size) == ERROR_SUCCESS &&
           type == REG_DWORD && size == sizeof(value);
}

template <typename T>
bool ReadNumber(const RegistryKey& key, const std::wstring& name, std::byte* field) {
    uint32_t stored = 0;
    if (!ReadDword(key, name, stored))
        return false;
    const auto number = static_cast<std::conditional_t<std::is_signed_v<T>, int32_t, uint32_t>>(stored);
    if (!std::in_range<T>(number))
        return false;
    StoreAs(field, static_cast<T>(number));
    return true;
}

// Every number except 0 is true.
template <typename T>
bool ReadBool(const RegistryKey& key, const std::wstring& name, std::byte* field) {
    uint32_t stored = 0;
    if (!ReadDword(key, name, stored))
        return false;
    StoreAs(field, static_cast<T>(stored != 0));
    return true;
}

template <typename T>
bool ReadFloat(const RegistryKey& key, const std::wstring& name, std::byte* field) {
    DWORD type = 0;
    DWORD size = 0;
    if (RegQueryValueExW(key.Get(), name.c_str(), nullptr, &type, nullptr, &size) != ERROR_SUCCESS ||
        type != REG_BINARY || size != sizeof(T))
        return false;
    T value{};
    if (RegQueryValueExW(key.Get(), name.c_str(), nullptr, nullptr, reinterpret_cast<BYTE*>(&value), &size) !=
        ERROR_SUCCESS)
        return false;
    StoreAs(field, value);
    return true;
}

// Truncates a text that is too long for the buffer.
template <typename Char>
void FillBuffer(std::basic_string_view<Char> text, std::byte* field, uint32_t count) {
    auto* buffer = reinterpret_cast<Char*>(field);
    const size_t length = std::min<size_t>(text.length(), count - 1);
    std::copy_n(text.begin(), length, buffer);
    buffer[length] = Char{};
}

bool ReadEnumeration(const std::string& word, const EnumRow* rows, std::byte* field) {
    for (; rows->name; ++rows) {
        if (_stricmp(rows->name, word.c_str()) == 0) {
            StoreAs(field, rows->value);
            return true;
        }
    }
    return false;
}

// Stores a text in a field of one of the four text types.
bool ReadText(const RegistryKey& key, const std::wstring& name, const FieldRow& row, std::byte* field) {
    std::wstring text;
    if (!key.ReadString(name, text))
        return false;
    switch (row.type) {
        case TypeCode::TextBuffer:
            FillBuffer<char>(Narrow(text), field, row.count);
            return true;
        case TypeCode::WideTextBuffer:
            FillBuffer<wchar_t>(text, field, row.count);
            return true;
        case TypeCode::Enumeration:
            return ReadEnumeration(Narrow(text), static_cast<const EnumRow*>(row.subTable), field);
        case TypeCode::String:
            *reinterpret_cast<std::string*>(field) = Narrow(text);
            return true;
        default:
            *reinterpret_cast<std::wstring*>(field) = text;
            return true;
    }
}

// Both lists are cleared before the stored value is looked for.
bool ReadWideList(const RegistryKey& key, const std::wstring& name, std::vector<std::wstring>& list) {
    list.clear();
    return key.ReadStringList(name, list);
}

bool ReadNarrowList(const RegistryKey& key, const std::wstring& name, std::vector<std::string>& list) {
    list.clear();
    std::vector<std::wstring> wide;
    if (!key.ReadStringList(name, wide))
        return false;
    std::ranges::transform(wide, std::back_inserter(list), Narrow);
    return true;
}

// Reads one value: a plain field or an element of an array. The two character types are written but never
// read.
bool ReadValue(const RegistryKey& key, const std::wstring& name, const FieldRow& row, std::byte* field) {
    switch (row.type) {
        case TypeCode::Bool32:
            return ReadBool<Bool32>(key, name, field);
        case TypeCode::Bool:
            return ReadBool<bool>(key, name, field);
        case TypeCode::UInt8:
            return ReadNumber<uint8_t>(key, name, field);
        case TypeCode::Int8:
            return ReadNumber<int8_t>(key, name, field);
        case TypeCode::UInt16:
            return ReadNumber<uint16_t>(key, name, field);
        case TypeCode::Int16:
            return ReadNumber<int16_t>(key, name, field);
        case TypeCode::UInt32:
            return ReadNumber<uint32_t>(key, name, field);
        case TypeCode::Int32:
            return ReadNumber<int32_t>(key, name, field);
        case TypeCode::Float:
            return ReadFloat<float>(key, name, field);
        case TypeCode::Double:
            return ReadFloat<double>(key, name, field);
        case TypeCode::TextBuffer:
        case TypeCode::WideTextBuffer:
        case TypeCode::Enumeration:
        case TypeCode::String:
        case TypeCode::WideString:
            return ReadText(key, name, row, field);
        case TypeCode::StringList:
            return ReadNarrowList(key, name, *reinterpret_cast<std::vector<std::string>*>(field));
        case TypeCode::WideStringList:
            return ReadWideList(key, name, *reinterpret_cast<std::vector<std::wstring>*>(field));
        default:
            return false;
    }
}

bool ReadFields(const RegistryKey& key, const FieldRow* table, std::byte* record);

// A section row with a count above 1 fills each element from the same subkey.
bool ReadSection(const RegistryKey& parent, const std::wstring& name, const FieldRow& row, std::byte* field) {
    RegistryKey key;
    if (!OpenKey(parent.Get(), name, key))
        return false;
    bool result = true;
    for (uint32_t index = 0; index < row.count; ++index) {
        result &=
            ReadFields(key, static_cast<const FieldRow*>(row.subTable), field + size_t{index} * row.size);
    }
    return result;
}

bool ReadArray(const RegistryKey& parent, const std::wstring& name, const FieldRow& row, std::byte* field) {
    RegistryKey key;
    if (!OpenKey(parent.Get(), name, key))
        return false;
    bool result = true;
    for (uint32_t index = 0; index < row.count; ++index)
        result &= ReadValue(key, std::to_wstring(index), row, field + size_t{index} * row.size);
    return result;
}

bool ReadFields(const RegistryKey& key, const FieldRow* table, std::byte* record) {
    bool result = true;
    for (const FieldRow* row = table; row->name; ++row) {
        const std::wstring name = Widen(row->name);
        std::byte* field = record + row->offset;
        if (row->type == TypeCode::Section)
            result &= ReadSection(key, name, *row, field);
        else if (row->count > 1 && row->type != TypeCode::TextBuffer && row->type != TypeCode::WideTextBuffer)
            result &= ReadArray(key, name, *row, field);
        else
            result &= ReadValue(key, name, *row, field);
    }
    return result;
}

}  // namespace

bool RegistryDeserializer::Deserialize(const FieldRow* table, void* record) {
    RegistryKey key;
    return OpenKey(HKEY_CURRENT_USER, path_, key) && ReadFields(key, table, static_cast<std::byte*>(record));
}

}  // namespace MetaTypes
