// A registry as an old version, another program or a curious user may have left it: some of the values that
// the settings read, in any type and size, and some that they do not know.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "fuzz/Input.h"
#include "support/TestRegistry.h"

namespace Fuzz {

// The keys below the root key under which presets may be stored.
extern const std::vector<std::wstring> PresetKeys;

// Stores values below the settings' root key until the input is at its end.
void FillRegistry(Input& input, const TestSupport::TestRegistry& registry);

// One stored value.
struct StoredValue {
    std::wstring key;
    std::wstring name;
    TestSupport::RegistryValue value;
};

// Everything below a key, except what stands at these places: "key\name".
std::vector<StoredValue> ValuesElsewhere(const TestSupport::TestRegistry& registry, const std::wstring& key,
                                         const std::set<std::wstring>& places);

}  // namespace Fuzz
