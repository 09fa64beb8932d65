#include "fuzz/Input.h"

namespace Fuzz {

namespace {

constexpr wchar_t UnusualUnits[] = {
    0x80,                            // the first of two bytes in UTF-8
    0x85,   0xA0,   0x2028, 0x3000,  // white space, or nearly
    0xC4,   0xE4,   0xDF,   0x130,  0x131,  0x178, 0xFF, 0x3A3, 0x3C2, 0x416, 0x1E9E,  // letters with a case
    0x7FF,  0x800,           // the last of two bytes, the first of three
    0xD800, 0xD83D, 0xDBFF,  // lead surrogates
    0xDC00, 0xDE00, 0xDFFF,  // trail surrogates
    0xE000, 0xFEFF, 0xFFFD, 0xFFFE, 0xFFFF,
};

}  // namespace

uint32_t Input::Number() {
    uint32_t number = 0;
    for (int shift = 0; shift < 32; shift += 8)
        number |= uint32_t{Byte()} << shift;
    return number;
}

wchar_t Input::Unit() {
    const uint8_t byte = Byte();
    if (byte >= 0x80)
        return UnusualUnits[(byte - 0x80) % std::size(UnusualUnits)];
    return byte != 0 ? static_cast<wchar_t>(byte) : L' ';
}

std::wstring Input::Text(size_t longest) {
    std::wstring text(Below(longest + 1), L'\0');
    for (wchar_t& unit : text)
        unit = Unit();
    return text;
}

std::wstring Input::Rest() {
    std::wstring text;
    while (!IsAtEnd())
        text += Unit();
    return text;
}

}  // namespace Fuzz
