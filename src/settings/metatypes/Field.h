// Typed access to the fields of a record. A Field names a row of the record's table together with the type of
// the member that the row describes, so that a row of another record, or of another type, does not compile.
#pragma once

#include <array>
#include <cstdint>

#include "settings/metatypes/Settings.h"

namespace MetaTypes {

template <typename Record, typename Member>
struct Field {
    uint32_t row;
};

// Settings whose record is known. Used as a base, and by value as a view of a section.
template <typename Record>
class SettingsOf : public Settings {
public:
    using Settings::Get;
    using Settings::Section;
    using Settings::Settings;
    explicit SettingsOf(const Settings& settings) : Settings(settings) {}

    // Returns the value of a field.
    template <typename T>
    T& Get(Field<Record, T> field) {
        return Settings::Get<T>(field.row);
    }
    template <typename T>
    const T& Get(Field<Record, T> field) const {
        return Settings::Get<T>(field.row);
    }

    // Returns an element of an array. Throws std::bad_cast if index is not below N.
    template <typename T, size_t N>
    T& Get(Field<Record, std::array<T, N>> field, size_t index) {
        return Settings::Get<T>(field.row, index);
    }
    template <typename T, size_t N>
    const T& Get(Field<Record, std::array<T, N>> field, size_t index) const {
        return Settings::Get<T>(field.row, index);
    }

    // Returns a view of a section, valid as long as the record.
    template <typename Inner>
    SettingsOf<Inner> Section(Field<Record, Inner> section) {
        return SettingsOf<Inner>(Settings::Section(section.row));
    }
    template <typename Inner>
    const SettingsOf<Inner> Section(Field<Record, Inner> section) const {
        return SettingsOf<Inner>(Settings::Section(section.row));
    }
};

}  // namespace MetaTypes
