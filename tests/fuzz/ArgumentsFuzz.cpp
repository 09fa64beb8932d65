// The split of the command line.
#include <cwctype>

#include "app/Arguments.h"
#include "fuzz/Check.h"
#include "fuzz/Input.h"
#include "support/Text.h"

using namespace Fuzz;

namespace {

// What belongs to arguments: everything but the quotes and the white space outside them.
std::wstring Kept(const std::wstring& line) {
    std::wstring kept;
    bool inQuotes = false;
    for (const wchar_t unit : line)
        if (unit == L'"')
            inQuotes = !inQuotes;
        else if (inQuotes || std::iswspace(static_cast<wint_t>(unit)) == 0)
            kept += unit;
    return kept;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const std::wstring line = Input(data, size).Rest();
    const std::string shown = TestSupport::Utf8(line);
    const std::vector<std::wstring> arguments = SplitArguments(line);

    std::wstring joined;
    std::wstring quoted;
    for (const std::wstring& argument : arguments) {
        Check(!argument.empty(), "no argument is empty", shown);
        Check(argument.find(L'"') == std::wstring::npos, "no argument holds a quote", shown);
        joined += argument;
        quoted += L" \"" + argument + L"\"";
    }
    Check(joined == Kept(line), "nothing but quotes and separators is lost", shown);
    Check(SplitArguments(quoted) == arguments, "each argument survives in quotes of its own", shown);

    // A separator ends a piece at any position, and a quote's other half starts in another state.
    if (line.find(L'"') == std::wstring::npos) {
        for (const std::wstring& argument : arguments)
            for (const wchar_t unit : argument)
                Check(std::iswspace(static_cast<wint_t>(unit)) == 0, "white space separates", shown);
    }
    return 0;
}
