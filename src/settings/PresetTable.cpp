#include "settings/PresetTable.h"

#include <cstddef>
#include <type_traits>

#include "settings/EnumTables.h"
#include "settings/PresetFields.h"
#include "settings/metatypes/MakeRow.h"

using MetaTypes::EndOfTable;
using MetaTypes::FieldRow;
using MetaTypes::MakeRow;

namespace {

// The table of a section, by the section's record.
template <typename Record>
struct SectionTable;

template <typename Member>
constexpr FieldRow Row(const char* name, size_t offset) {
    using Element = typename MetaTypes::MemberShape<Member>::Element;
    if constexpr (requires { SectionTable<Member>::Rows; })
        return MakeRow<Member>(name, offset, SectionTable<Member>::Rows);
    else if constexpr (std::is_enum_v<Element>)
        return MakeRow<Member>(name, offset, EnumNames(Element()));
    else
        return MakeRow<Member>(name, offset);
}

#define ROW(type, name, member, value) Row<decltype(Record::member)>(#name, offsetof(Record, member)),
#define DEFINE_TABLE(Section, FIELDS)                                \
    template <>                                                      \
    struct SectionTable<Section::Record> {                           \
        using Record = Section::Record;                              \
        static constexpr FieldRow Rows[] = {FIELDS(ROW) EndOfTable}; \
    };

DEFINE_TABLE(Format, FORMAT_FIELDS)
DEFINE_TABLE(Display, DISPLAY_FIELDS)
DEFINE_TABLE(Columns, COLUMNS_FIELDS)
DEFINE_TABLE(Filter, FILTER_FIELDS)
DEFINE_TABLE(Saving, SAVING_FIELDS)
DEFINE_TABLE(Opening, OPENING_FIELDS)
DEFINE_TABLE(Sorting, SORTING_FIELDS)

using Record = PresetRecord;

}  // namespace

constinit const FieldRow PresetTable[] = {PRESET_FIELDS(ROW) EndOfTable};

#undef ROW
#undef DEFINE_TABLE
