// A complete, named set of listing options: what is searched, which columns appear, how entries are sorted,
// where the list is saved and how it is opened. Each preset has a registry key of its own.
#pragma once

#include <cstdint>
#include <string>

#include "settings/PresetFields.h"

class Preset : public MetaTypes::SettingsOf<PresetRecord> {
public:
    // The rows of the preset's own fields and of its sections.
#define ROW(type, name, member, value) \
    static constexpr MetaTypes::Field<PresetRecord, type> name = {static_cast<uint32_t>(PresetRows::name)};
    PRESET_FIELDS(ROW)
#undef ROW

    // Sets the default values. The preset will be stored under this key; the registry is not accessed here.
    explicit Preset(const std::wstring& key);

    // Copies the key too: for a job that must not see later edits.
    Preset(const Preset& other);
    Preset& operator=(const Preset&) = delete;

    // Copies every value of the other preset, its name included, but keeps this preset's position and key.
    virtual Preset& Assign(const Preset& other);

    using SettingsOf::Get;
    using SettingsOf::Section;

    // Returns a field of a section, for example preset.Get(Display::IndentSize).
    template <typename Record, typename T>
    T& Get(MetaTypes::Field<Record, T> field) {
        return Section(SectionRow<Record>).Get(field);
    }
    template <typename Record, typename T>
    const T& Get(MetaTypes::Field<Record, T> field) const {
        return Section(SectionRow<Record>).Get(field);
    }

    // Returns an element of an array of a section. Throws std::bad_cast if index is not below N.
    template <typename Record, typename T, size_t N>
    T& Get(MetaTypes::Field<Record, std::array<T, N>> field, size_t index) {
        return Section(SectionRow<Record>).Get(field, index);
    }
    template <typename Record, typename T, size_t N>
    const T& Get(MetaTypes::Field<Record, std::array<T, N>> field, size_t index) const {
        return Section(SectionRow<Record>).Get(field, index);
    }

    // The name of the preset's registry key. It never changes.
    const std::wstring& Key() const {
        return key_;
    }

    // Read and write the preset's registry key. What cannot be read keeps its value; the other fields are
    // written if one cannot be. Return whether every field succeeded.
    bool Load();
    bool Save() const;

    // Deletes the preset's registry key with its subkeys. Does nothing if the key is empty.
    void DeleteKey() const;

private:
    std::wstring key_;
    PresetRecord record_;
};
