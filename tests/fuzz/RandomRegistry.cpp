#include "fuzz/RandomRegistry.h"

#include <cstring>

#include "settings/MainSettings.h"
#include "support/settings/RecordFields.h"

namespace Fuzz {

using MetaTypes::EnumRow;
using MetaTypes::FieldRow;
using MetaTypes::TypeCode;
using TestSupport::DwordValue;
using TestSupport::RegistryValue;
using TestSupport::StringListValue;
using TestSupport::StringValue;
using TestSupport::TestRegistry;
using TestSupport::TextData;

const std::vector<std::wstring> PresetKeys = {L"0k3j2h1g", L"x", L"\u00DCnic\u00F6de"};

namespace {

// Keys for values that no field table names.
struct Place {
    const wchar_t* key;
    const wchar_t* name;
};
constexpr Place UnknownPlaces[] = {
    {L"", L""},
    {L"", L"Other"},
    {L"\\Filter", L"Other"},
    {L"\\Columns\\FolderColumns", L"12"},
    {L"\\Deep\\Deeper", L"Name"},
};
constexpr const wchar_t* Keys[] = {L"", L"\\Format", L"\\Filter", L"\\Sorting\\FileSortKeys"};
constexpr DWORD Types[] = {REG_NONE, REG_SZ, REG_EXPAND_SZ, REG_BINARY, REG_DWORD, REG_MULTI_SZ, REG_QWORD};

// A word of the enumeration, with any of its letters in the other case.
std::wstring Word(Input& input, const FieldRow& row) {
    const auto* const rows = static_cast<const EnumRow*>(row.subTable);
    size_t count = 0;
    while (rows[count].name != nullptr)
        ++count;
    std::wstring word;
    const char* const name = rows[input.Below(count)].name;
    for (const char* letter = name; *letter != '\0'; ++letter)
        word += static_cast<wchar_t>(input.Below(8) == 7 ? *letter ^ 0x20 : *letter);
    return word;
}

RegistryValue FittingValue(Input& input, const FieldRow& row) {
    switch (row.type) {
        case TypeCode::Enumeration:
            return StringValue(Word(input, row));
        case TypeCode::WideString:
            return StringValue(input.Text(12));
        case TypeCode::WideStringList: {
            std::vector<std::wstring> list(input.Below(4));
            for (std::wstring& text : list)
                text = input.Text(8);
            return StringListValue(list);
        }
        default:
            return DwordValue(input.Bool() ? input.Number() : input.Byte());
    }
}

// Any type with text, its terminators missing or in the middle, or with plain bytes, in any size.
RegistryValue AnyValue(Input& input) {
    const DWORD type = input.Choose(Types);
    std::string data;
    if (input.Bool()) {
        std::wstring text = input.Text(12);
        for (wchar_t& unit : text)
            unit = unit == L' ' ? L'\0' : unit;
        data = TextData(text);
        data.append(input.Below(2), '\1');
    } else {
        // A character holds one UTF-16 unit, however wide it is.
        const size_t size = input.Below(12);
        for (size_t i = 0; i < size; ++i)
            data += static_cast<char>(i % sizeof(wchar_t) < 2 ? input.Byte() & 1 : 0);
    }
    return {type, data};
}

}  // namespace

void FillRegistry(Input& input, const TestRegistry& registry) {
    MainSettings settings;
    Preset preset(L"any");
    const std::vector<RecordField> mainFields = FieldsOf(settings);
    const std::vector<RecordField> presetFields = FieldsOf(preset);
    while (!input.IsAtEnd()) {
        const size_t record = input.Below(PresetKeys.size() + 1);
        std::wstring key = MainSettings::RootKey;
        if (record != 0)
            key += L"\\" + PresetKeys[record - 1];
        const RecordField& field = input.Choose(record == 0 ? mainFields : presetFields);
        switch (input.Below(8)) {
            case 0: {
                const Place& place = input.Choose(UnknownPlaces);
                const RegistryValue value = AnyValue(input);
                registry.SetRaw(key + place.key, place.name, value.type, value.data);
                break;
            }
            case 1:
                registry.CreateKey(key + input.Choose(Keys));
                break;
            case 2:
            case 3: {
                const RegistryValue value = AnyValue(input);
                registry.SetRaw(key + field.key, field.name, value.type, value.data);
                break;
            }
            default: {
                const RegistryValue value = FittingValue(input, *field.row);
                registry.SetRaw(key + field.key, field.name, value.type, value.data);
            }
        }
    }
}

}  // namespace Fuzz
