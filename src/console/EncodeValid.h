// Encodes UTF-16 for readers that require valid UTF-8.
#pragma once

#include <utf8.h>

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace Console {

// Writes UTF-16 text as UTF-8 to `out` and returns its end; each unit takes at most three bytes. Characters
// below 0x80 are written by `writeAscii(character, out)`, which returns its end too. Half a surrogate pair,
// which the name of a file may contain, becomes U+FFFD and sets `lossy`.
template <typename WriteAscii>
char* EncodeValid(std::wstring_view text, char* out, bool& lossy, const WriteAscii& writeAscii) {
    constexpr uint32_t Replacement = 0xFFFD;
    constexpr uint32_t SurrogateOffset = (0xD800u << 10) + 0xDC00u - 0x10000u;
    const auto unit = [text](size_t index) { return static_cast<uint32_t>(text[index]) & 0xFFFF; };
    const auto isTrail = [&](size_t index) { return index < text.size() && unit(index) >> 10 == 0x37; };
    for (size_t i = 0; i < text.size(); ++i) {
        uint32_t codePoint = unit(i);
        if (codePoint < 0x80) {
            out = writeAscii(static_cast<char>(codePoint), out);
            continue;
        }
        const bool isLead = codePoint >> 10 == 0x36;
        if (isLead && isTrail(i + 1)) {
            codePoint = (codePoint << 10) + unit(++i) - SurrogateOffset;
        } else if (isLead || isTrail(i)) {
            codePoint = Replacement;
            lossy = true;
        }
        out = utf8::unchecked::append(codePoint, out);
    }
    return out;
}

}  // namespace Console
