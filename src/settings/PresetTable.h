// The field table of a PresetRecord, with the names under which the registry stores its fields.
#pragma once

#include "settings/metatypes/FieldTable.h"

extern const MetaTypes::FieldRow PresetTable[];
