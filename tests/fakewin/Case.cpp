// Upper and lower case of single UTF-16 units.
#include <algorithm>
#include <array>
#include <cstdio>
#include <memory>

#include "Internal.h"

namespace FakeWin::Internal {
namespace {

struct CaseTables {
    std::array<wchar_t, 0x10000> lower;
    std::array<wchar_t, 0x10000> upper;

    void Pair(int upperUnit, int lowerUnit) {
        lower[static_cast<size_t>(upperUnit)] = lowerUnit;
        upper[static_cast<size_t>(lowerUnit)] = upperUnit;
    }

    // A run of upper-case letters whose lower-case forms are at this distance after them.
    void Block(int first, int last, int distance) {
        for (int unit = first; unit <= last; ++unit)
            Pair(unit, unit + distance);
    }

    // Letters in turn: upper, lower, upper, lower.
    void Pairs(int first, int last) {
        for (int unit = first; unit < last; unit += 2)
            Pair(unit, unit + 1);
    }

    CaseTables() {
        for (size_t unit = 0; unit < lower.size(); ++unit)
            lower[unit] = upper[unit] = static_cast<wchar_t>(unit);
        Block('A', 'Z', 32);
        Block(0xC0, 0xD6, 32);  // Latin with accents; D7 is the multiplication sign
        Block(0xD8, 0xDE, 32);
        Pairs(0x100, 0x12F);
        Pairs(0x132, 0x137);
        Pairs(0x139, 0x148);
        Pairs(0x14A, 0x177);
        Pair(0x178, 0xFF);
        Pairs(0x179, 0x17E);
        Pair(0x386, 0x3AC);  // Greek with accents
        Block(0x388, 0x38A, 37);
        Pair(0x38C, 0x3CC);
        Block(0x38E, 0x38F, 63);
        Block(0x391, 0x3A1, 32);
        Block(0x3A3, 0x3AB, 32);
        Block(0x400, 0x40F, 80);  // Cyrillic
        Block(0x410, 0x42F, 32);
        Pairs(0x460, 0x481);
        Pairs(0x48A, 0x4BF);
        Pairs(0x4D0, 0x52F);
        Block(0x531, 0x556, 48);  // Armenian
        Pairs(0x1E00, 0x1E95);    // more Latin
        Pairs(0x1EA0, 0x1EFF);
        Block(0xFF21, 0xFF3A, 32);  // full-width Latin
    }
};

const CaseTables& Tables() {
    static const auto tables = std::make_unique<const CaseTables>();
    return *tables;
}

}  // namespace

wchar_t Lower(wchar_t unit) {
    return unit >= 0 && unit < 0x10000 ? Tables().lower[static_cast<size_t>(unit)] : unit;
}

wchar_t Upper(wchar_t unit) {
    return unit >= 0 && unit < 0x10000 ? Tables().upper[static_cast<size_t>(unit)] : unit;
}

std::wstring Fold(std::wstring_view text) {
    std::wstring folded(text);
    std::ranges::transform(folded, folded.begin(), Upper);
    return folded;
}

bool FoldedLess::operator()(std::wstring_view less, std::wstring_view more) const {
    return std::ranges::lexicographical_compare(less, more, {}, Upper, Upper);
}

std::string Narrow(std::wstring_view text) {
    std::string narrow;
    for (const wchar_t unit : text) {
        if (unit >= 32 && unit < 127)
            narrow += static_cast<char>(unit);
        else {
            char code[16];
            std::snprintf(code, sizeof code, "\\u%04X", static_cast<unsigned>(unit));
            narrow += code;
        }
    }
    return narrow;
}

}  // namespace FakeWin::Internal
