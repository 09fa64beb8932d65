// The templates that a new preset can start from.
#pragma once

#include <array>
#include <cstdint>

class Preset;

inline constexpr uint32_t TemplateCount = 6;

// The names for the user; the index is the template's number.
extern const std::array<const wchar_t*, TemplateCount> TemplateNames;

// Sets the values of the template, its name included; key and position stay. REQUIRES: number <
// TemplateCount.
void ApplyTemplate(Preset& preset, uint32_t number);
