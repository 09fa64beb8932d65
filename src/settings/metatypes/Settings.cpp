#include "settings/metatypes/Settings.h"

#include "settings/metatypes/Serializer.h"

namespace MetaTypes {
namespace {

// The text may be shown to the user, and that of std::bad_cast differs between compilers.
class BadCast : public std::bad_cast {
public:
    const char* what() const noexcept override { return "bad cast"; }
};

}  // namespace

Settings Settings::Section(uint32_t row) {
    return Settings(static_cast<const FieldRow*>(table_[row].subTable), Single(row, TypeCode::Section));
}

const Settings Settings::Section(uint32_t row) const {
    return Settings(static_cast<const FieldRow*>(table_[row].subTable), Single(row, TypeCode::Section));
}

bool Settings::Serialize(ISerializer& serializer) const {
    return serializer.Serialize(table_, record_);
}

bool Settings::Deserialize(IDeserializer& deserializer) {
    return deserializer.Deserialize(table_, record_);
}

void* Settings::Single(uint32_t row, TypeCode type) const {
    const FieldRow& field = table_[row];
    if (field.type != type || field.count != 1)
        throw BadCast();
    return record_ + field.offset;
}

void* Settings::Element(uint32_t row, TypeCode type, size_t index) const {
    const FieldRow& field = table_[row];
    if (field.type != type || field.count < 2 || index >= field.count)
        throw BadCast();
    return record_ + field.offset + index * field.size;
}

}  // namespace MetaTypes
