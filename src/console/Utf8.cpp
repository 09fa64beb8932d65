#include "console/Utf8.h"

#include <utf8.h>

#include <iterator>

#include "console/EncodeValid.h"

namespace Console {

std::string ToUtf8(std::wstring_view text) {
    std::string encoded(text.size() * 3, '\0');
    bool lossy = false;
    char* const end = EncodeValid(text, encoded.data(), lossy, [](char character, char* out) {
        *out = character;
        return out + 1;
    });
    encoded.resize(static_cast<size_t>(end - encoded.data()));
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
