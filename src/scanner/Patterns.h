// The two filters of a scan: which files it keeps, by name, and which folders it leaves out, by path. Both
// are lists of patterns in which * stands for any run of characters, backslashes included, and ? for exactly
// one. Case is folded one character at a time; patterns once, when they are compiled, the text while
// matching.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace Scanner {

using PatternList = std::vector<std::wstring>;

// The tokens between the colons, without the empty ones. Blanks belong to their token.
PatternList SplitPatterns(std::wstring_view text);

// The list for a search filter such as "*.txt:*.doc", to be matched against file names; never empty. A token
// that no file name can match is kept as it is and matches none.
PatternList CompileSearchPatterns(std::wstring_view searchPattern);

// The list for excluded folders, to be matched against whole paths. Entries that no path can match are left
// out.
PatternList CompileExcludedFolders(const std::vector<std::wstring>& excludedFolders);

// Whether any pattern of a compiled list covers the whole NUL-terminated text. Copies nothing.
bool MatchWildcard(const PatternList& patterns, const wchar_t* text);

}  // namespace Scanner
