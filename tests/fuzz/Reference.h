// The rules for patterns, paths and text once more: as plain as they can be put, and as slow.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace Fuzz {

// Each character in lower case, one at a time.
std::wstring Lowered(std::wstring_view text);

// Whether the pattern covers the whole text, where * matches any run and ? any one character. Only the
// text is lowered.
bool Covers(std::wstring_view pattern, std::wstring_view text);
bool CoversAny(const std::vector<std::wstring>& patterns, std::wstring_view text);

// The pieces between separators, without the empty ones.
std::vector<std::wstring> Pieces(std::wstring_view text, wchar_t separator);

// The patterns of a search filter and of a list of excluded folders.
std::vector<std::wstring> SearchPatterns(std::wstring_view filter);
std::vector<std::wstring> ExcludedPatterns(const std::vector<std::wstring>& entries);

std::wstring Normalised(std::wstring_view text);
std::wstring Joined(std::wstring_view first, std::wstring_view second);

// Whether each surrogate has its other half.
bool IsUtf16(std::wstring_view text);

}  // namespace Fuzz
