// A registry as an old version or another program may have written it: some of the values that
// the settings read, in any type and size, and some that they do not know.
#pragma once

#include <string>
#include <vector>

#include "fuzz/Input.h"
#include "support/TestRegistry.h"

namespace Fuzz {

// The keys below the root key under which presets may be stored.
extern const std::vector<std::wstring> PresetKeys;

// Stores values below the settings' root key until the input is at its end.
void FillRegistry(Input& input, const TestSupport::TestRegistry& registry);

}  // namespace Fuzz
