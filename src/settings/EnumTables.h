// The words by which the registry stores each enumeration of Enumerations.h, one table for each. EnumNames
// returns the table of an enumeration.
#pragma once

#include "settings/Enumerations.h"
#include "settings/metatypes/FieldTable.h"

extern const MetaTypes::EnumRow ListStyleNames[];
extern const MetaTypes::EnumRow SizeStyleNames[];
extern const MetaTypes::EnumRow SaveLocationNames[];
extern const MetaTypes::EnumRow OpenMethodNames[];
extern const MetaTypes::EnumRow FolderColumnNames[];
extern const MetaTypes::EnumRow FileColumnNames[];
extern const MetaTypes::EnumRow FolderSortKeyNames[];
extern const MetaTypes::EnumRow FileSortKeyNames[];
extern const MetaTypes::EnumRow SortOrderNames[];

constexpr const MetaTypes::EnumRow* EnumNames(ListStyle) {
    return ListStyleNames;
}
constexpr const MetaTypes::EnumRow* EnumNames(SizeStyle) {
    return SizeStyleNames;
}
constexpr const MetaTypes::EnumRow* EnumNames(SaveLocation) {
    return SaveLocationNames;
}
constexpr const MetaTypes::EnumRow* EnumNames(OpenMethod) {
    return OpenMethodNames;
}
constexpr const MetaTypes::EnumRow* EnumNames(FolderColumn) {
    return FolderColumnNames;
}
constexpr const MetaTypes::EnumRow* EnumNames(FileColumn) {
    return FileColumnNames;
}
constexpr const MetaTypes::EnumRow* EnumNames(FolderSortKey) {
    return FolderSortKeyNames;
}
constexpr const MetaTypes::EnumRow* EnumNames(FileSortKey) {
    return FileSortKeyNames;
}
constexpr const MetaTypes::EnumRow* EnumNames(SortOrder) {
    return SortOrderNames;
}
