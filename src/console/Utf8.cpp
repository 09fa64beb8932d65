#include "console/Utf8.h"

#include <utf8.h>

#include <iterator>

namespace Console {

namespace {

constexpr wchar_t Replacement = 0xFFFD;

bool IsLead(wchar_t unit) {
    return (unit & 0xFC00) == 0xD800;
}

bool IsTrail(wchar_t unit) {
    return (unit & 0xFC00) == 0xDC00;
}

std::wstring ReplaceHalves(std::wstring_view text) {
    std::wstring valid(text);
    for (size_t i = 0; i < valid.size(); ++i) {
        if (IsLead(valid[i]) && i + 1 < valid.size() && IsTrail(valid[i + 1]))
            ++i;
        else if (IsLead(valid[i]) || IsTrail(valid[i]))
            valid[i] = Replacement;
    }
    return valid;
}

}  // namespace

std::string ToUtf8(std::wstring_view text) {
    const std::wstring valid = ReplaceHalves(text);
    std::string encoded;
    encoded.reserve(valid.size());
    utf8::unchecked::utf16to8(valid.begin(), valid.end(), std::back_inserter(encoded));
    return encoded;
}

std::wstring FromUtf8(std::string_view text) {
    std::string valid;
    valid.reserve(text.size());
    utf8::replace_invalid(text.begin(), text.end(), std::back_inserter(valid));
    std::wstring wide;
    wide.reserve(valid.size());
    utf8::unchecked::utf8to16(valid.begin(), valid.end(), std::back_inserter(wide));
    return wide;
}

}  // namespace Console
