#include "settings/PresetKey.h"

#include <cstdlib>
#include <ctime>
#include <iterator>

namespace {

// Includes the terminating NUL, which is drawn like any other character and ends the key.
constexpr wchar_t KeyAlphabet[] = L"0123456789abcdefghijklmnopqrstuvwxyz";
constexpr size_t KeyLength = 8;

}  // namespace

std::wstring MakePresetKey() {
    std::srand(static_cast<unsigned>(std::time(nullptr)));
    return DrawPresetKey();
}

std::wstring DrawPresetKey() {
    wchar_t key[KeyLength + 1] = {};
    for (size_t i = 0; i < KeyLength; ++i)
        key[i] = KeyAlphabet[static_cast<size_t>(std::rand()) % std::size(KeyAlphabet)];
    return key;
}
