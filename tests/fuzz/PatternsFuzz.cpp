// Search filters and excluded folders against a slow matcher.
#include "fuzz/Check.h"
#include "fuzz/Input.h"
#include "fuzz/Reference.h"
#include "scanner/Patterns.h"
#include "support/Text.h"

using namespace Fuzz;
using TestSupport::Utf8;

namespace {

// A text of few different characters, so that patterns meet it.
std::wstring CloseText(Input& input, size_t longest) {
    constexpr std::wstring_view Units = L"aAbB.*?:\\\\ /|\"\u00E4\u00C4\u0130\u03A3-1";
    std::wstring text(input.Below(longest + 1), L'\0');
    for (wchar_t& unit : text) {
        const size_t choice = input.Below(Units.size() + 1);
        unit = choice < Units.size() ? Units[choice] : input.Unit();
    }
    return text;
}

void CheckSearch(const std::wstring& filter, const std::wstring& name) {
    const std::string shown = Utf8(filter) + " on " + Utf8(name);
    const Scanner::PatternList patterns = Scanner::CompileSearchPatterns(filter);
    Check(Scanner::SplitPatterns(filter) == Pieces(filter, L':'), "a filter splits at its colons", shown);
    Check(patterns == SearchPatterns(filter), "a filter compiles to its tokens", shown);
    Check(Scanner::MatchWildcard(patterns, name.c_str()) == CoversAny(patterns, name),
          "a filter matches what it covers", shown);
}

void CheckExclusion(const std::vector<std::wstring>& entries, const std::wstring& path) {
    std::string shown = Utf8(path);
    for (const std::wstring& entry : entries)
        shown += "\n" + Utf8(entry);
    const Scanner::PatternList patterns = Scanner::CompileExcludedFolders(entries);
    Check(patterns == ExcludedPatterns(entries), "excluded folders compile to their entries", shown);
    Check(Scanner::MatchWildcard(patterns, path.c_str()) == CoversAny(patterns, path),
          "excluded folders match what they cover", shown);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    Input input(data, size);
    const std::wstring text = CloseText(input, 40);
    const std::wstring pattern = CloseText(input, 40);
    CheckSearch(pattern, text);

    std::vector<std::wstring> entries = {pattern};
    while (!input.IsAtEnd() && entries.size() < 4)
        entries.push_back(CloseText(input, 20));
    CheckExclusion(entries, text);
    return 0;
}
