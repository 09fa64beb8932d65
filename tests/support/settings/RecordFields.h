// The values of any persistent record, found through its own field table: what a test that does not care for
// single fields needs in order to fill, compare and show them.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "settings/metatypes/FieldTable.h"
#include "settings/metatypes/Settings.h"

// One value: a plain field, or one element of an array.
struct RecordField {
    std::wstring key;  // the registry key of the value below the record's own, with a backslash in front of
                       // each part; empty for the record's own key
    std::wstring name;
    const MetaTypes::FieldRow* row;
    std::byte* data;  // in the record
};

// All values in the order of the table. They point into the settings' record.
std::vector<RecordField> FieldsOf(MetaTypes::Settings& settings);

// A value as text; of a list each string after its length.
std::wstring TextOf(const RecordField& field);

// The same of all values, each as "key\name: value".
std::vector<std::wstring> TextsOf(MetaTypes::Settings& settings);
