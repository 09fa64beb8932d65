#include "support/Random.h"

#include <cstdlib>

std::wstring Random::Text(uint32_t longest) {
    std::wstring text(Below(longest + 1), L'\0');
    for (wchar_t& unit : text)
        unit = static_cast<wchar_t>(Bool() ? 0x20 + Below(0x60) : 1 + Below(0xFFFF));
    return text;
}

uint32_t FirstSeed() {
    const char* const given = std::getenv("TAMBLEWICK_SEED");
    if (given != nullptr)
        return static_cast<uint32_t>(std::strtoul(given, nullptr, 10));
    return std::random_device()();
}
