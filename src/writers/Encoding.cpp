#include "writers/Encoding.h"

#include <utf8.h>

#include <cstdint>

namespace {

constexpr uint32_t LeadSurrogateMin = 0xD800;
constexpr uint32_t LeadSurrogateMax = 0xDBFF;

// (lead << 10) + trail - SurrogateOffset is the code point: 0xD800 << 10, plus 0xDC00, minus 0x10000.
constexpr uint32_t SurrogateOffset = 0x35FDC00;

// In bytes. Only a lead surrogate at the end of a text takes more than three for one unit.
constexpr size_t LongestUnit = 4;

}  // namespace

std::string_view EncodeText(std::wstring_view text, std::string& memory) {
    if (memory.size() < text.size() * LongestUnit)
        memory.resize(text.size() * LongestUnit);

    const auto unit = [text](size_t index) {
        return index < text.size() ? static_cast<uint32_t>(text[index]) & 0xFFFF : 0;
    };
    char* end = memory.data();
    for (size_t i = 0; i < text.size(); ++i) {
        uint32_t codePoint = unit(i);
        if (codePoint >= LeadSurrogateMin && codePoint <= LeadSurrogateMax)
            codePoint = (codePoint << 10) + unit(++i) - SurrogateOffset;
        end = utf8::unchecked::append(codePoint, end);
    }
    return {memory.data(), end};
}
