// Descriptions of records as constant data. A persistent class carries one table for its record; saving,
// loading and typed access all read the table.
#pragma once

#include <cstdint>

namespace MetaTypes {

enum class TypeCode : uint32_t {
    Char = 1,
    WideChar = 2,
    Bool32 = 3,
    Bool = 4,
    UInt8 = 5,
    Int8 = 6,
    UInt16 = 7,
    Int16 = 8,
    UInt32 = 9,
    Int32 = 10,
    Float = 11,
    Double = 12,
    TextBuffer = 13,      // narrow text, UTF-8, in a fixed buffer
    WideTextBuffer = 14,  // wide text in a fixed buffer
    Enumeration = 15,
    Section = 16,  // a record within the record
    String = 17,   // narrow, UTF-8
    WideString = 18,
    // 19 to 32 are reserved
    StringList = 33,
    WideStringList = 34,
};

// One name of an enumeration. A table ends with a row whose name is null.
struct EnumRow {
    const char* name;
    uint32_t value;
};

// One field. A table ends with a row whose name is null.
struct FieldRow {
    const char* name;  // UTF-8; also the field's name in the registry
    uint32_t size;     // bytes of one element
    uint32_t count;    // 1 for a single value, N for an array, the buffer's length for the text buffers
    uint32_t offset;   // from the start of the record
    TypeCode type;
    const void* subTable;  // of a section its FieldRow table, of an enumeration its EnumRow table, else null
};

}  // namespace MetaTypes
