// The case of the letters A to Z, which no locale changes.
#pragma once

namespace Scanner {

// The character in lower case if it is one of A to Z, otherwise as it is.
inline wchar_t LowerAscii(wchar_t character) {
    return character >= L'A' && character <= L'Z' ? static_cast<wchar_t>(character - L'A' + L'a') : character;
}

}  // namespace Scanner
