// CompareStringW: a collation in the manner of Windows' word sort, fixed and small.
//
// Two texts are compared in four passes, of which the first that finds a difference decides: letters without
// case and accents, with digits and punctuation; accents; case, lower before upper; and last the hyphens and
// apostrophes, which the first pass skips.
#include <array>
#include <cwchar>
#include <string_view>

#include "Internal.h"

namespace FakeWin {
namespace {

// The first pass: punctuation in this order, then digits, then letters, then everything else by number.
constexpr std::wstring_view Punctuation = L" !\"#$%&()*,./:;?@[\\]^_`{|}~+<=>";
constexpr int DigitWeight = 0x100;
constexpr int LetterWeight = 0x200;
constexpr int OtherWeight = 0x1000;

// What the lower-case letters E0 to FF are without their accents; a blank means none.
constexpr std::wstring_view Latin1Bases = L"aaaaaaaceeeeiiiidnooooo ouuuuyty";

bool IsSkipped(wchar_t unit) {
    return unit == L'-' || unit == L'\'';
}

bool IsDigit(wchar_t unit) {
    return unit >= L'0' && unit <= L'9';
}

// One place of a text: a character, or a run of digits as one number.
struct Element {
    int weight = 0;
    int accent = 0;  // of a number less than 0: one for each leading zero, so that 01 comes before 1
    int upper = 0;
    std::wstring_view digits;  // of a number, without leading zeros
};

Element ElementOf(wchar_t unit) {
    Element element;
    const wchar_t lower = Internal::Lower(unit);
    element.upper = lower != unit;
    const size_t place = Punctuation.find(unit);
    if (place != std::wstring_view::npos) {
        element.weight = 1 + static_cast<int>(place);
    } else if (IsDigit(unit)) {
        element.weight = DigitWeight + unit - L'0';
    } else if (lower >= L'a' && lower <= L'z') {
        element.weight = LetterWeight + lower;
    } else if (lower >= 0xDF && lower <= 0xFF && lower != 0xF7) {
        element.weight =
            LetterWeight + (lower == 0xDF ? L's' : Latin1Bases[static_cast<size_t>(lower - 0xE0)]);
        element.accent = lower;
    } else {
        element.weight = OtherWeight + lower;
    }
    return element;
}

// The elements of Latin-1, of which most texts consist.
const std::array<Element, 256>& Latin1Elements() {
    static const auto elements = [] {
        std::array<Element, 256> all;
        for (size_t unit = 0; unit < all.size(); ++unit)
            all[unit] = ElementOf(static_cast<wchar_t>(unit));
        return all;
    }();
    return elements;
}

class Reader {
public:
    Reader(std::wstring_view text, bool numbers) : rest_(text), numbers_(numbers) {}

    // The next element, or one of weight 0 at the end.
    Element Next() {
        while (!rest_.empty() && IsSkipped(rest_[0]))
            rest_.remove_prefix(1);
        if (rest_.empty())
            return {};
        const wchar_t unit = rest_[0];
        if (numbers_ && IsDigit(unit))
            return Number();
        rest_.remove_prefix(1);
        return unit >= 0 && unit < 256 ? latin1_[static_cast<size_t>(unit)] : ElementOf(unit);
    }

private:
    Element Number() {
        size_t length = 0;
        while (length < rest_.size() && IsDigit(rest_[length]))
            ++length;
        Element element;
        element.weight = DigitWeight;
        element.digits = rest_.substr(0, length);
        const size_t zeros = std::min(element.digits.find_first_not_of(L'0'), length);
        element.digits.remove_prefix(zeros);
        element.accent = -static_cast<int>(zeros);
        rest_.remove_prefix(length);
        return element;
    }

    std::wstring_view rest_;
    bool numbers_;
    const std::array<Element, 256>& latin1_ = Latin1Elements();
};

int Order(int first, int second) {
    return first < second ? -1 : first > second;
}

// The first pass on one place.
int CompareElements(const Element& first, const Element& second) {
    if (first.weight != second.weight)
        return Order(first.weight, second.weight);
    if (first.digits.size() != second.digits.size())
        return first.digits.size() < second.digits.size() ? -1 : 1;
    return Order(first.digits.compare(second.digits), 0);
}

// The last pass: the skipped characters by their positions, a text without them first, the apostrophe before
// the hyphen.
int CompareSkipped(std::wstring_view first, std::wstring_view second) {
    const size_t length = std::min(first.size(), second.size());
    for (size_t i = 0; i < length; ++i) {
        const bool one = IsSkipped(first[i]);
        const bool other = IsSkipped(second[i]);
        if (one != other)
            return one ? 1 : -1;
        if (one && first[i] != second[i])
            return Order(first[i], second[i]);
    }
    return Order(static_cast<int>(first.size()), static_cast<int>(second.size()));
}

int Compare(std::wstring_view first, std::wstring_view second, DWORD flags) {
    Reader one(first, (flags & SORT_DIGITSASNUMBERS) != 0);
    Reader other(second, (flags & SORT_DIGITSASNUMBERS) != 0);
    int accents = 0;
    int cases = 0;
    while (true) {
        const Element left = one.Next();
        const Element right = other.Next();
        if (const int order = CompareElements(left, right))
            return order;
        if (left.weight == 0)
            break;
        if (accents == 0)
            accents = Order(left.accent, right.accent);
        if (cases == 0)
            cases = Order(left.upper, right.upper);
    }
    if (accents != 0)
        return accents;
    if (cases != 0 && (flags & NORM_IGNORECASE) == 0)
        return cases;
    return CompareSkipped(first, second);
}

}  // namespace
}  // namespace FakeWin

using namespace FakeWin;

int CompareStringW(LCID, DWORD flags, LPCWSTR first, int firstLength, LPCWSTR second, int secondLength) {
    const Internal::SystemMemory system;
    DWORD error = Internal::Enter(Call::CompareStringW);
    if (error == 0 && (first == nullptr || second == nullptr))
        error = ERROR_INVALID_PARAMETER;
    if (error == 0 && (flags & ~static_cast<DWORD>(NORM_IGNORECASE | SORT_DIGITSASNUMBERS)) != 0)
        error = ERROR_INVALID_FLAGS;
    if (error != 0)
        return SetLastError(error), 0;
    const auto view = [](LPCWSTR text, int length) {
        return std::wstring_view(text, length < 0 ? std::wcslen(text) : static_cast<size_t>(length));
    };
    return CSTR_EQUAL + Compare(view(first, firstLength), view(second, secondLength), flags);
}
