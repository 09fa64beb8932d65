// The two filters of a scan: the files that it keeps, by name, and the folders that it leaves out, by path.
// Both are lists of patterns in which * matches any run of characters, backslashes included, and ? exactly
// one character. Case is folded character by character: that of patterns when they are compiled, that of the
// text while matching.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace Scanner {

using PatternList = std::vector<std::wstring>;

// Returns the non-empty tokens between the colons. Blanks are part of a token.
PatternList SplitPatterns(std::wstring_view text);

// Compiles a search filter such as "*.txt:*.doc" to match file names; the result is never empty. A token that
// no file name can match is kept and matches none.
PatternList CompileSearchPatterns(std::wstring_view searchPattern);

// Compiles excluded folders to match whole paths. Entries that no path can match are left out.
PatternList CompileExcludedFolders(const std::vector<std::wstring>& excludedFolders);

// Returns whether a pattern of a compiled list matches the whole NUL-terminated text. Does not allocate.
bool MatchWildcard(const PatternList& patterns, const wchar_t* text);

}  // namespace Scanner
