// The words by which the registry stores each enumeration of Enumerations.h, one table for each.
#pragma once

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
