// A preset of values that the program can have stored itself.
#pragma once

#include "fuzz/Input.h"
#include "settings/Preset.h"

namespace Fuzz {

// Gives all values of the preset a choice that makes sense for a list of a small tree.
void FillPreset(Input& input, Preset& preset);

}  // namespace Fuzz
