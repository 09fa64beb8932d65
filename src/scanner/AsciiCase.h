// The case of the letters A to Z, which no locale changes.
#pragma once

namespace Scanner {

// Returns the lower case of A to Z, and any other character unchanged.
inline wchar_t LowerAscii(wchar_t character) {
    return character >= L'A' && character <= L'Z' ? static_cast<wchar_t>(character - L'A' + L'a') : character;
}

}  // namespace Scanner
