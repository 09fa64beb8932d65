// Creates the name of a new preset's registry key.
#pragma once

#include <string>

// Returns at most 8 digits and lower-case letters, drawn from the C runtime's generator seeded with the
// current second. Shorter and even empty keys occur; two keys of the same second are equal.
std::wstring MakePresetKey();

// The same without seeding the generator.
std::wstring DrawPresetKey();
