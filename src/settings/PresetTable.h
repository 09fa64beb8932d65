// The field table of a PresetRecord: its rows carry the names under which the registry stores a preset.
#pragma once

#include "settings/metatypes/FieldTable.h"

extern const MetaTypes::FieldRow PresetTable[];
