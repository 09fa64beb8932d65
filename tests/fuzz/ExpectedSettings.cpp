#include "fuzz/ExpectedSettings.h"

#include <cstring>

#include "fuzz/Reference.h"

namespace Fuzz {

using MetaTypes::EnumRow;
using MetaTypes::TypeCode;
using TestSupport::RegistryValue;

namespace {

using Stored = std::optional<RegistryValue>;

std::optional<uint32_t> Number(const Stored& value) {
    uint32_t number = 0;
    if (!value || value->type != REG_DWORD || value->data.size() != sizeof number)
        return std::nullopt;
    std::memcpy(&number, value->data.data(), sizeof number);
    return number;
}

// The units of a text, zeros behind them; a unit that is not whole counts.
std::optional<std::wstring> Units(const Stored& value, DWORD type) {
    if (!value || value->type != type)
        return std::nullopt;
    std::wstring units(value->data.size() / sizeof(wchar_t) + 2, L'\0');
    std::memcpy(units.data(), value->data.data(), value->data.size());
    return units;
}

std::optional<std::wstring> Text(const Stored& value) {
    const std::optional<std::wstring> units = Units(value, REG_SZ);
    return units ? std::optional(units->substr(0, units->find(L'\0'))) : std::nullopt;
}

// In the form of TextOf.
std::wstring List(const Stored& value) {
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
    for (size_t i = 0; i < text.size(); ++i) {
        if (LowerAscii(text[i]) != LowerAscii(word[i]))
            return false;
    }
    return true;
}

}  // namespace

std::wstring ExpectedSettings::TextAfterReading(const RecordField& field,
                                                const std::wstring& recordKey) const {
    const Stored value = registry_.Get(recordKey + field.key, field.name);
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
            for (const auto* row = static_cast<const EnumRow*>(field.row->subTable); row->name; ++row) {
                if (text && IsWord(*text, row->name))
                    return std::to_wstring(row->value);
            }
            return TextOf(field);
        case TypeCode::WideString:
            return text.value_or(TextOf(field));
        default:
            // The list is emptied as soon as its key is there.
            return registry_.KeyExists(recordKey + field.key) ? List(value) : TextOf(field);
    }
}

bool ExpectedSettings::BreaksReading(const RecordField& field, const std::wstring& recordKey) const {
    if (field.row->type != TypeCode::Enumeration)
        return false;
    const std::optional<std::wstring> text = Text(registry_.Get(recordKey + field.key, field.name));
    return text && !IsUtf16(*text);
}

}  // namespace Fuzz
