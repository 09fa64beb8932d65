#include "support/Text.h"

#include <cstdint>
#include <cstdio>

#include <utf8.h>

namespace TestSupport {

std::string Utf8(std::wstring_view text) {
    std::string result;
    for (size_t i = 0; i < text.size(); ++i) {
        const auto unit = static_cast<uint32_t>(text[i]);
        const auto next = i + 1 < text.size() ? static_cast<uint32_t>(text[i + 1]) : 0;
        if (unit >= 0xD800 && unit < 0xDC00 && next >= 0xDC00 && next < 0xE000) {
            utf8::append(static_cast<char32_t>(0x10000 + ((unit - 0xD800) << 10) + (next - 0xDC00)), result);
            ++i;
        } else if (unit >= 0xD800 && unit < 0xE000) {
            char escape[16];
            std::snprintf(escape, sizeof escape, "\\u%04X", static_cast<unsigned>(unit));
            result += escape;
        } else {
            utf8::append(static_cast<char32_t>(unit), result);
        }
    }
    return result;
}

std::wstring Wide(std::string_view utf8) {
    std::wstring result;
    for (const char16_t unit : utf8::utf8to16(utf8))
        result += static_cast<wchar_t>(unit);
    return result;
}

}  // namespace TestSupport
