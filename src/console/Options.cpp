#include "console/Options.h"

#include <getopt.h>

#include <algorithm>

#include "console/Errors.h"
#include "console/Utf8.h"

namespace Console {

namespace {

constexpr int FirstLong = 256;  // the value of the first option; greater than any letter
constexpr int Operand = 1;

// What getopt_long needs, made from the list of options.
struct Grammar {
    std::string letters = "-:";  // operands are returned in order, errors are reported by us
    std::vector<option> names;

    explicit Grammar(std::span<const Option> known) {
        for (const Option& row : known) {
            const int value = FirstLong + static_cast<int>(names.size());
            names.push_back({row.name, row.takesValue ? required_argument : no_argument, nullptr, value});
            if (row.letter != 0) {
                letters += row.letter;
                if (row.takesValue)
                    letters += ':';
            }
        }
        names.push_back({});
    }
};

// Returns the option that getopt_long has found, by the letter or the number of its row.
const Option& Found(std::span<const Option> known, int value) {
    if (value >= FirstLong)
        return known[static_cast<size_t>(value - FirstLong)];
    size_t i = 0;
    while (known[i].letter != value)
        ++i;
    return known[i];
}

// Returns why getopt_long has refused an option. optopt is then the letter or the number of a known option
// that is used wrongly, an unknown letter, or 0 for an unknown long option; argument is what holds a long
// option. The runtimes differ in the result for a value that is not taken, so only optopt counts.
std::wstring Refusal(std::span<const Option> known, const char* argument) {
    const std::wstring name = optopt != 0 && optopt < FirstLong
                                  ? std::wstring{L'-', static_cast<wchar_t>(optopt)}
                                  : FromUtf8(argument);
    const auto isRefused = [&](const Option& row) {
        return optopt >= FirstLong ? &row == &known[static_cast<size_t>(optopt - FirstLong)]
                                   : optopt != 0 && row.letter == optopt;
    };
    const auto row = std::ranges::find_if(known, isRefused);
    if (row == known.end())
        return L"there is no option '" + name + L"' here";
    return L"the option '" + name + (row->takesValue ? L"' needs a value" : L"' takes no value");
}

}  // namespace

Options::Options(const Arguments& arguments, std::span<const Option> known) {
    std::vector<std::string> encoded = {"tamblewickc"};
    for (const std::wstring& argument : arguments)
        encoded.push_back(ToUtf8(argument));
    std::vector<char*> pointers;
    for (std::string& argument : encoded)
        pointers.push_back(argument.data());
    pointers.push_back(nullptr);

    // An argument as it was given: encoding may lose half a surrogate pair. Null is the value of an option
    // that takes none.
    const auto given = [&](const char* text) {
        if (text == nullptr)
            return std::wstring();
        for (size_t i = 0; i < arguments.size(); ++i)
            if (text == encoded[i + 1].data())
                return arguments[i];
        return FromUtf8(text);
    };

    const Grammar grammar(known);
    const int count = static_cast<int>(encoded.size());
    opterr = 0;
    optind = 0;  // starts anew
    int value;
    while ((value = getopt_long(count, pointers.data(), grammar.letters.c_str(), grammar.names.data(),
                                nullptr)) != -1)
        if (value == Operand)
            operands.push_back(given(optarg));
        else if (value == ':' || value == '?')
            throw UsageError(Refusal(known, pointers[static_cast<size_t>(optind - 1)]));
        else
            values_[Found(known, value).name] = given(optarg);
    for (int i = optind; i < count; ++i)
        operands.push_back(given(pointers[static_cast<size_t>(i)]));
}

}  // namespace Console
