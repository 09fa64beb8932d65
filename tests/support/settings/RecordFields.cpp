#include "support/settings/RecordFields.h"

#include <cstdint>
#include <cstring>
#include <stdexcept>

#include "settings/metatypes/Memory.h"
#include "settings/metatypes/Serializer.h"

using MetaTypes::FieldRow;
using MetaTypes::LoadAs;
using MetaTypes::TypeCode;

namespace {

void AddFields(const FieldRow* table, std::byte* record, const std::wstring& key,
               std::vector<RecordField>& fields) {
    for (const FieldRow* row = table; row->name != nullptr; ++row) {
        const std::wstring name(row->name, row->name + std::strlen(row->name));
        std::byte* const field = record + row->offset;
        if (row->type == TypeCode::Section) {
            AddFields(static_cast<const FieldRow*>(row->subTable), field, key + L"\\" + name, fields);
        } else if (row->count == 1) {
            fields.push_back({key, name, row, field});
        } else {
            for (uint32_t i = 0; i < row->count; ++i)
                fields.push_back(
                    {key + L"\\" + name, std::to_wstring(i), row, field + size_t{i} * row->size});
        }
    }
}

// Reads nothing, but records where the record and its table are.
class Collector : public MetaTypes::IDeserializer {
public:
    bool Deserialize(const FieldRow* table, void* record) override {
        AddFields(table, static_cast<std::byte*>(record), L"", fields);
        return true;
    }

    std::vector<RecordField> fields;
};

}  // namespace

std::vector<RecordField> FieldsOf(MetaTypes::Settings& settings) {
    Collector collector;
    settings.Deserialize(collector);
    return collector.fields;
}

std::wstring TextOf(const RecordField& field) {
    switch (field.row->type) {
        case TypeCode::Bool:
            return LoadAs<bool>(field.data) ? L"true" : L"false";
        case TypeCode::Int32:
            return std::to_wstring(LoadAs<int32_t>(field.data));
        case TypeCode::UInt32:
        case TypeCode::Enumeration:
            return std::to_wstring(LoadAs<uint32_t>(field.data));
        case TypeCode::WideString:
            return *reinterpret_cast<const std::wstring*>(field.data);
        case TypeCode::WideStringList: {
            std::wstring text;
            for (const std::wstring& entry : *reinterpret_cast<const std::vector<std::wstring>*>(field.data))
                text += std::to_wstring(entry.size()) + L" " + entry + L" ";
            return text;
        }
        default:
            throw std::logic_error("a type that no table of this program uses");
    }
}

std::vector<std::wstring> TextsOf(MetaTypes::Settings& settings) {
    std::vector<std::wstring> texts;
    for (const RecordField& field : FieldsOf(settings))
        texts.push_back(field.key + L"\\" + field.name + L": " + TextOf(field));
    return texts;
}
