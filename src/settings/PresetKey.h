// Makes the name of a new preset's registry key.
#pragma once

#include <string>

// Eight draws from the C runtime's generator, seeded with the current second: a text of at most 8 digits and
// lower-case letters. Shorter, even empty, keys occur, and two keys made within one second are equal.
std::wstring MakePresetKey();

// The same from the generator as it stands.
std::wstring DrawPresetKey();
