#include "writers/Encoding.h"

#include <utf8.h>

#include <algorithm>
#include <cstdint>
#include <iterator>

namespace {

constexpr uint32_t LeadSurrogateMin = 0xD800;
constexpr uint32_t LeadSurrogateMax = 0xDBFF;

// Takes the marks off both halves of a surrogate pair and adds the 0x10000 at which pairs begin.
constexpr uint32_t SurrogateOffset = 0x35FDC00;

}  // namespace

std::string EncodeText(std::wstring_view text) {
    // Nearly all text is ASCII to its end and is then copied in one go.
    const auto ascii =
        std::find_if(text.begin(), text.end(), [](wchar_t c) { return static_cast<uint32_t>(c) >= 0x80; });
    std::string bytes(text.begin(), ascii);

    const auto unit = [text](size_t index) {
        return index < text.size() ? static_cast<uint32_t>(text[index]) & 0xFFFF : 0;
    };
    for (size_t i = bytes.size(); i < text.size(); ++i) {
        uint32_t codePoint = unit(i);
        if (codePoint >= LeadSurrogateMin && codePoint <= LeadSurrogateMax)
            codePoint = (codePoint << 10) + unit(++i) - SurrogateOffset;
        utf8::unchecked::append(codePoint, std::back_inserter(bytes));
    }
    return bytes;
}
