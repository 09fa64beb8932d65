// The 32-bit boolean of the platform as a distinct type, so that a field table distinguishes it from a
// number.
#pragma once

#include <cstdint>

namespace MetaTypes {

enum class Bool32 : uint32_t { False = 0, True = 1 };

}  // namespace MetaTypes
