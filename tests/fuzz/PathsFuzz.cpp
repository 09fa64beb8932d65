// The cleaning and joining of paths.
#include <algorithm>

#include "fuzz/Check.h"
#include "fuzz/Input.h"
#include "fuzz/Reference.h"
#include "scanner/Path.h"
#include "support/Text.h"

using namespace Fuzz;
using Scanner::JoinPath;
using Scanner::NormalizePath;
using TestSupport::Utf8;

namespace {

constexpr std::wstring_view Doubled = L"\\\\";

std::wstring PathText(Input& input) {
    constexpr std::wstring_view Units = L"\\\\\\ab:/.";
    std::wstring text(input.Below(24), L'\0');
    for (wchar_t& unit : text) {
        const size_t choice = input.Below(Units.size() + 1);
        unit = choice < Units.size() ? Units[choice] : input.Unit();
    }
    return text;
}

bool IsBackslashesOnly(const std::wstring& text) {
    return !text.empty() && text.find_first_not_of(L'\\') == std::wstring::npos;
}

ptrdiff_t Backslashes(const std::wstring& text) {
    return std::ranges::count(text, L'\\');
}

void CheckNormalised(const std::wstring& text) {
    const std::string shown = Utf8(text);
    const std::wstring path = NormalizePath(text);
    Check(path == Normalised(text), "a path keeps its names", shown);
    Check(NormalizePath(path) == path, "a clean path stays", shown);
    Check(Backslashes(path) <= Backslashes(text), "no backslash is added", shown);
    Check(path.find(Doubled) == std::wstring::npos, "no backslash is doubled", shown);
    Check(path == L"\\" || !(path.starts_with(L'\\') || path.ends_with(L'\\')), "no backslash at the ends",
          shown);

    const std::wstring canonical = JoinPath(text, L"");
    Check(JoinPath(canonical, L"") == canonical, "a canonical path stays", shown);
    Check(JoinPath(L"", text) == canonical, "nothing in front adds nothing", shown);
    Check(Backslashes(canonical) <= Backslashes(text), "a canonical path has no more backslashes", shown);
    Check(canonical.find(Doubled, 1) == std::wstring::npos, "only a network path has two backslashes", shown);
}

// A part of backslashes only counts as the name "\", so it alone brings two in a row.
void CheckJoined(const std::wstring& first, const std::wstring& second) {
    const std::string shown = Utf8(first) + "\n" + Utf8(second);
    const std::wstring path = JoinPath(first, second);
    Check(path == Joined(first, second), "both parts are joined by one backslash", shown);
    if (!IsBackslashesOnly(first) && !IsBackslashesOnly(second)) {
        Check(path.find(Doubled, 1) == std::wstring::npos, "joining doubles no backslash", shown);
        Check(JoinPath(path, L"") == path, "a joined path is canonical", shown);
        Check(Backslashes(path) <= Backslashes(first) + Backslashes(second) + 1,
              "joining adds one backslash at most", shown);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    Input input(data, size);
    const std::wstring first = PathText(input);
    const std::wstring second = PathText(input);
    CheckNormalised(first);
    CheckNormalised(second);
    CheckJoined(first, second);
    return 0;
}
