#include "fuzz/ExpectedSettings.h"

#include <cstring>

#include "fuzz/Reference.h"

namespace Fuzz {

using MetaTypes::EnumRow;
using MetaTypes::TypeCode;
using TestSupport::RegistryValue;

namespace {

using Value = std::optional<RegistryValue>;

std::optional<uint32_t> Number(const Value& value) {
    uint32_t number = 0;
    if (!value || value->type != REG_DWORD || value->data.size() != sizeof number)
        return std::nullopt;
    std::memcpy(&number, value->data.data(), sizeof number);
    return number;
}

// The units of a text, zeros after them; a unit that is not whole counts.
std::optional<std::wstring> Units(const Value& value, DWORD type) {
    if (!value || value->type != type)
        return std::nullopt;
    std::wstring units(value->data.size() / sizeof(wchar_t) + 2, L'\0');
    std::memcpy(units.data(), value->data.data(), value->data.size());
    return units;
}

std::optional<std::wstring> Text(const Value& value) {
    const std::optional<std::wstring> units = Units(value, REG_SZ);
    return units ? std::optional(units->substr(0, units->find(L'\0'))) : std::nullopt;
}

// In the form of TextOf.
std::wstring List(const Value& value) {
    const std::wstring units = Units(value, REG_MULTI_SZ).value_or(std::wstring(1, L'\0'));
    std::wstring text;
    for (size_t begin = 0; units[begin] != L'\0';) {
        const std::wstring entry = units.substr(begin, units.find(L'\0', begin) - begin);
        text += std::to_wstring(entry.size()) + L" " + entry + L" ";
        begin += entry.size() + 1;
    }
    return text;
}

wchar_t LowerAscii(wchar_t unit) {
    return unit >= L'A' && unit <= L'Z' ? unit + 32 : unit;
}

bool IsWord(const std::wstring& text, const char* word) {
    if (text.size() != std::strlen(word))
        return false;
    for (size_t i = 0; i < text.size(); ++i)
        if (LowerAscii(text[i]) != LowerAscii(word[i]))
            return false;
    return true;
}

}  // namespace

ExpectedSettings::ExpectedSettings(const TestSupport::TestRegistry& registry, const std::wstring& key) {
    if (registry.KeyExists(key))
        TakeDown(registry, key);
}

void ExpectedSettings::TakeDown(const TestSupport::TestRegistry& registry, const std::wstring& key) {
    keys_.insert(key);
    for (const std::wstring& name : registry.ValueNames(key))
        values_[key + L"\\" + name] = registry.Get(key, name).value();
    for (const std::wstring& subkey : registry.Subkeys(key))
        TakeDown(registry, key + L"\\" + subkey);
}

std::wstring ExpectedSettings::TextAfterReading(const RecordField& field,
                                                const std::wstring& recordKey) const {
    const Value value = Stored(field, recordKey);
    const std::optional<uint32_t> number = Number(value);
    const std::optional<std::wstring> text = Text(value);
    switch (field.row->type) {
        case TypeCode::Bool:
            return !number ? TextOf(field) : *number != 0 ? L"true" : L"false";
        case TypeCode::Int32:
            return number ? std::to_wstring(static_cast<int32_t>(*number)) : TextOf(field);
        case TypeCode::UInt32:
            return number ? std::to_wstring(*number) : TextOf(field);
        case TypeCode::Enumeration:
            for (const auto* row = static_cast<const EnumRow*>(field.row->subTable); row->name; ++row)
                if (text && IsWord(*text, row->name))
                    return std::to_wstring(row->value);
            return TextOf(field);
        case TypeCode::WideString:
            return text.value_or(TextOf(field));
        default:
            // The list is emptied as soon as its key is there.
            return keys_.contains(recordKey + field.key) ? List(value) : TextOf(field);
    }
}

bool ExpectedSettings::BreaksReading(MetaTypes::Settings& record, const std::wstring& recordKey) const {
    for (const RecordField& field : FieldsOf(record)) {
        const std::optional<std::wstring> text = Text(Stored(field, recordKey));
        if (field.row->type == TypeCode::Enumeration && text && !IsUtf16(*text))
            return true;
    }
    return false;
}

Value ExpectedSettings::Stored(const RecordField& field, const std::wstring& recordKey) const {
    const auto found = values_.find(recordKey + field.key + L"\\" + field.name);
    return found != values_.end() ? std::optional(found->second) : std::nullopt;
}

}  // namespace Fuzz
