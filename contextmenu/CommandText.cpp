#include "contextmenu/CommandText.h"

#include <algorithm>

namespace {

// The number of units of the character at position: 2 for a pair of surrogates.
size_t CharacterLength(const std::wstring& text, size_t position) {
    const bool isPair = position + 1 < text.size() && IS_SURROGATE_PAIR(text[position], text[position + 1]);
    return isPair ? 2 : 1;
}

// Put one character, given as its units, into a place with this room, which is not 0. Return how much of the
// room it takes, or 0 if it does not fit.
size_t Put(const wchar_t* units, size_t length, wchar_t* place, size_t room) {
    if (length > room)
        return 0;
    std::copy_n(units, length, place);
    return length;
}

size_t Put(const wchar_t* units, size_t length, char* place, size_t room) {
    return static_cast<size_t>(WideCharToMultiByte(CP_ACP, 0, units, static_cast<int>(length), place,
                                                   static_cast<int>(room), nullptr, nullptr));
}

template <typename Char>
HRESULT Copy(const std::wstring& text, Char* buffer, size_t size) {
    size_t used = 0;
    for (size_t position = 0; position < text.size() && used < size - 1;) {
        const size_t length = CharacterLength(text, position);
        const size_t taken = Put(&text[position], length, buffer + used, size - 1 - used);
        if (taken == 0)
            break;
        used += taken;
        position += length;
    }
    buffer[used] = 0;
    return used == 0 && !text.empty() ? HRESULT_FROM_WIN32(ERROR_INSUFFICIENT_BUFFER) : S_OK;
}

}  // namespace

HRESULT CopyText(const std::wstring& text, wchar_t* buffer, UINT size) {
    return Copy(text, buffer, size);
}

HRESULT CopyText(const std::wstring& text, char* buffer, UINT size) {
    return Copy(text, buffer, size);
}
