#include "fuzz/list/RandomPreset.h"

#include "settings/SearchFilters.h"
#include "settings/metatypes/Memory.h"
#include "support/settings/RecordFields.h"

namespace Fuzz {

using MetaTypes::EnumRow;
using MetaTypes::StoreAs;
using MetaTypes::TypeCode;

namespace {

constexpr const wchar_t* Patterns[] = {L"*", L"", L"*.txt:a*", L"?????", L":::", L"a/b", L"*.?*"};
constexpr const wchar_t* Exclusions[] = {L"?:\\System Volume Information",
                                         L"*\\.GIT",
                                         L"c:\\data\\a*",
                                         L"D:\\\\Sub Folder\\",
                                         L"*2",
                                         L"C:/Data",
                                         L""};
constexpr const wchar_t* ListFolders[] = {L"C:\\Lists", L"C:/Lists/", L"C:\\Lists\\Missing"};
constexpr uint32_t LargestIndent = 4;

uint32_t EnumerationValue(Input& input, const EnumRow* rows) {
    size_t count = 0;
    while (rows[count].name != nullptr)
        ++count;
    return rows[input.Below(count)].value;
}

}  // namespace

void FillPreset(Input& input, Preset& preset) {
    for (const RecordField& field : FieldsOf(preset)) {
        switch (field.row->type) {
            case TypeCode::Bool:
                StoreAs(field.data, input.Bool());
                break;
            case TypeCode::Enumeration:
                StoreAs(field.data,
                        EnumerationValue(input, static_cast<const EnumRow*>(field.row->subTable)));
                break;
            case TypeCode::UInt32:
                StoreAs(field.data, static_cast<uint32_t>(input.Below(LargestIndent + 1)));
                break;
            default:
                break;
        }
    }

    // One list in two has all files.
    const size_t row = input.Below(2 * SearchFilters.size());
    preset.Get(Filter::PresetSearchPattern) = row < SearchFilters.size() ? static_cast<int32_t>(row) : 0;
    preset.Get(Filter::CustomSearchPattern) = input.Below(4) == 3 ? input.Text(6) : input.Choose(Patterns);
    auto& excluded = preset.Get(Filter::ExcludedFolders);
    excluded.clear();
    for (size_t count = input.Below(4); count > 0; --count)
        excluded.push_back(input.Choose(Exclusions));

    preset.Get(Saving::CustomFolderPath) = input.Choose(ListFolders);
}

}  // namespace Fuzz
