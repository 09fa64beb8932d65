#include "scanner/Patterns.h"

#include <gtest/gtest.h>

#include "support/Text.h"

using namespace Scanner;
using TestSupport::Utf8;

TEST(SplitPatterns, SeparatesAtColonsAndDropsEmptyTokens) {
    const struct {
        const wchar_t* text;
        PatternList expected;
    } rows[] = {
        {L"", {}},
        {L":", {}},
        {L":::", {}},
        {L"a", {L"a"}},
        {L"a:b", {L"a", L"b"}},
        {L":a::b:", {L"a", L"b"}},
        {L" a : b ", {L" a ", L" b "}},
        {L"*.mp3:*.MP4", {L"*.mp3", L"*.MP4"}},
        {L" ", {L" "}},
        {L"a;b,c", {L"a;b,c"}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(SplitPatterns(row.text), row.expected) << Utf8(row.text);
}

TEST(CompileSearchPatterns, LowersTokensThatCanMatch) {
    const struct {
        const wchar_t* text;
        PatternList expected;
    } rows[] = {
        {L"*.TXT:", {L"*.txt"}},
        {L"A?B:*.Doc", {L"a?b", L"*.doc"}},
        {L"\x00C4rger.\x0416", {L"\x00E4rger.\x0436"}},
        {L" *.TXT", {L" *.txt"}},
        // No filter is every file.
        {L"", {L"*"}},
        {L"::", {L"*"}},
        // Tokens that match nothing stay as they were written.
        {L"A|B", {L"A|B"}},
        {L"A<B", {L"A<B"}},
        {L"A>B", {L"A>B"}},
        {L"A\"B", {L"A\"B"}},
        {L"Foo/Bar", {L"Foo/Bar"}},
        {L"Foo\\Bar", {L"Foo\\Bar"}},
        {L"A|B:C", {L"A|B", L"c"}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(CompileSearchPatterns(row.text), row.expected) << Utf8(row.text);
}

TEST(CompileExcludedFolders, LowersAndNormalisesPaths) {
    const struct {
        const wchar_t* entry;
        PatternList expected;
    } rows[] = {
        {L"C:\\TEMP\\", {L"c:\\temp"}},
        {L"?:\\System Volume Information", {L"?:\\system volume information"}},
        {L"*\\.git", {L"*\\.git"}},
        {L"\\a\\\\B\\", {L"a\\b"}},
        {L"\\\\Server\\Share\\", {L"\\\\server\\share"}},
        {L"C:\\\x00C4", {L"c:\\\x00E4"}},
        {L"", {L""}},
        // What no path can contain is dropped.
        {L"C:\\a|b", {}},
        {L"C:\\a<b", {}},
        {L"C:\\a>b", {}},
        {L"C:\\a\"b", {}},
        {L"C:/Temp", {}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(CompileExcludedFolders({row.entry}), row.expected) << Utf8(row.entry);
}

TEST(CompileExcludedFolders, KeepsTheOrderAndMayBeEmpty) {
    EXPECT_EQ(CompileExcludedFolders({}), PatternList{});
    EXPECT_EQ(CompileExcludedFolders({L"B", L"x/y", L"A"}), (PatternList{L"b", L"a"}));
}

namespace {

struct MatchRow {
    const wchar_t* pattern;
    const wchar_t* text;
    bool expected;
};

void CheckMatches(const std::vector<MatchRow>& rows) {
    for (const MatchRow& row : rows)
        EXPECT_EQ(MatchWildcard({row.pattern}, row.text), row.expected)
            << Utf8(row.pattern) << " on " << Utf8(row.text);
}

}  // namespace

TEST(MatchWildcard, ComparesWholeTextsWithoutRegardToCase) {
    CheckMatches({
        {L"a", L"a", true},
        {L"a", L"A", true},
        {L"a", L"b", false},
        {L"a", L"ab", false},
        {L"ab", L"a", false},
        {L"", L"", true},
        {L"", L"a", false},
        {L"a", L"", false},
        {L"\x00E4\x0436", L"\x00C4\x0416", true},
        {L"readme.txt", L"ReadMe.TXT", true},
    });
}

TEST(MatchWildcard, StarMatchesAnyRun) {
    CheckMatches({
        {L"*", L"", true},
        {L"*", L"anything", true},
        {L"***", L"anything", true},
        {L"***", L"", true},
        {L"*.txt", L"README.Txt", true},
        {L"*.txt", L".txt", true},
        {L"*.txt", L"txt", false},
        {L"*.txt", L"a.txt.doc", false},
        {L"*.txt", L"a.txt.txt", true},
        {L"a*", L"a", true},
        {L"a*", L"abc", true},
        {L"a*", L"b", false},
        {L"a**c", L"abc", true},
        {L"a**c", L"ac", true},
        {L"a*b*c", L"aXbYbZc", true},
        {L"a*b*c", L"aXbYbZ", false},
        {L"a*b*c", L"abc", true},
        {L"a*b*c", L"acb", false},
        {L"*ab", L"aab", true},
        {L"*aab", L"aaab", true},
        {L"*aab*ab", L"aaabaab", true},
        {L"*.*", L"makefile", false},
        {L"*.*", L"make.file", true},
        {L"*.*", L".", true},
        {L".*", L".gitignore", true},
        {L".*", L".", true},
        {L".*", L"..", true},
        {L".*", L"a.b", false},
    });
}

TEST(MatchWildcard, QuestionMarkMatchesExactlyOne) {
    CheckMatches({
        {L"??", L"ab", true},
        {L"??", L"a", false},
        {L"??", L"abc", false},
        {L"?", L"", false},
        {L"a?", L"a", false},
        {L"a?c", L"abc", true},
        {L"*?", L"", false},
        {L"*?", L"a", true},
        {L"?*", L"a", true},
        {L"?*?", L"a", false},
        {L"*?.txt", L".txt", false},
        {L"*?.txt", L"a.txt", true},
        // A character beyond the basic plane is two units.
        {L"??", L"\xD83D\xDE00", true},
        {L"?", L"\xD83D\xDE00", false},
        {L"a?b",
         L"a\xD800"
         L"b",
         true},
    });
}

TEST(MatchWildcard, KeepsBlanks) {
    CheckMatches({
        {L" *.txt", L" a.txt", true},
        {L" *.txt", L"a.txt", false},
    });
}

TEST(MatchWildcard, RunsAcrossBackslashes) {
    CheckMatches({
        {L"*\\.git", L"C:\\Code\\App\\.git", true},
        {L"*\\.git", L"C:\\.GIT", true},
        {L"*\\.git", L"C:\\Code\\.git\\objects", false},
        {L"*\\.git", L"C:\\Code\\x.git", false},
        {L"?:\\system volume information", L"D:\\System Volume Information", true},
        {L"?:\\system volume information", L"D:\\x\\System Volume Information", false},
        {L"c:\\temp", L"C:\\Temp", true},
        {L"c:\\temp", L"C:\\TEMP2", false},
        {L"c:\\temp", L"C:\\Temp\\sub", false},
        {L"a?b", L"a\\b", true},
    });
}

TEST(MatchWildcard, FoldsTheTextAlone) {
    CheckMatches({
        {L"A", L"A", false},
        {L"A", L"a", false},
    });
}

TEST(MatchWildcard, NeedsOneOfThePatterns) {
    EXPECT_FALSE(MatchWildcard({}, L"a"));
    EXPECT_FALSE(MatchWildcard({}, L""));
    const PatternList list = {L"*.mp3", L"*.txt", L"a|b"};
    EXPECT_TRUE(MatchWildcard(list, L"song.MP3"));
    EXPECT_TRUE(MatchWildcard(list, L"note.txt"));
    EXPECT_FALSE(MatchWildcard(list, L"image.png"));
}

TEST(MatchWildcard, MatchesNothingWithAnInvalidFilter) {
    const PatternList list = CompileSearchPatterns(L"foo/bar:Foo\\Bar:a|b");
    for (const wchar_t* name : {L"foo", L"bar", L"foobar", L"Foo Bar", L"ab"})
        EXPECT_FALSE(MatchWildcard(list, name)) << Utf8(name);
}

TEST(MatchWildcard, TakesNoLongerThanTextTimesPattern) {
    std::wstring pattern;
    for (int i = 0; i < 100; ++i)
        pattern += L"*a";
    const std::wstring text = std::wstring(5000, L'a') + L"b";
    EXPECT_FALSE(MatchWildcard({pattern}, text.c_str()));
    EXPECT_TRUE(MatchWildcard({pattern + L"*"}, text.c_str()));
}
