#include "scanner/Path.h"

#include <gtest/gtest.h>

#include "support/Text.h"

using namespace Scanner;
using TestSupport::Utf8;

TEST(NormalizePath, CleansBackslashes) {
    const struct {
        const wchar_t* text;
        const wchar_t* expected;
    } rows[] = {
        {L"", L""},
        {L"a", L"a"},
        {L"\\", L"\\"},
        {L"/", L"/"},
        {L"\\\\", L"\\"},
        {L"\\\\\\\\", L"\\"},
        {L"\\a", L"a"},
        {L"a\\", L"a"},
        {L"ab", L"ab"},
        {L"\\a\\\\b\\", L"a\\b"},
        {L"\\\\\\a\\\\\\b\\\\\\c\\\\\\", L"a\\b\\c"},
        {L"C:\\", L"C:"},
        {L"C:\\Data\\\\Photos\\", L"C:\\Data\\Photos"},
        {L"\\\\server\\share", L"server\\share"},
        {L"//a//b//", L"//a//b//"},
        {L" \\ ", L" \\ "},
    };
    for (const auto& row : rows)
        EXPECT_EQ(NormalizePath(row.text), row.expected) << Utf8(row.text);
}

TEST(JoinPath, JoinsTwoParts) {
    const struct {
        const wchar_t* first;
        const wchar_t* second;
        const wchar_t* expected;
    } rows[] = {
        {L"", L"", L""},
        {L"C:\\", L"", L"C:"},
        {L"C:\\Data\\", L"", L"C:\\Data"},
        {L"C:\\Data", L"x.txt", L"C:\\Data\\x.txt"},
        {L"C:\\Data\\", L"\\sub\\\\x.txt\\", L"C:\\Data\\sub\\x.txt"},
        {L"a", L"b", L"a\\b"},
        // The prefix of a network path survives, if it has just two backslashes.
        {L"\\\\server\\share\\", L"", L"\\\\server\\share"},
        {L"\\\\server\\share", L"x", L"\\\\server\\share\\x"},
        {L"\\\\s", L"", L"\\\\s"},
        {L"\\\\\\server", L"", L"server"},
        {L"\\server", L"", L"server"},
        {L"\\\\", L"", L"\\"},
        {L"\\\\", L"x", L"\\\\x"},
        {L"\\", L"x", L"\\\\x"},
        // With nothing in front the second part is alone, and may be a network path itself.
        {L"", L"x", L"x"},
        {L"", L"C:\\Data\\", L"C:\\Data"},
        {L"", L"\\\\server\\share\\", L"\\\\server\\share"},
        {L"", L"\\\\s", L"\\\\s"},
        {L"", L"\\\\\\server", L"server"},
        {L"", L"\\\\", L"\\"},
        // After a first part it may not.
        {L"C:\\Data", L"\\\\server\\share", L"C:\\Data\\server\\share"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(JoinPath(row.first, row.second), row.expected)
            << Utf8(row.first) << " and " << Utf8(row.second);
}

TEST(JoinPath, LeavesACanonicalPathAsItIs) {
    for (const wchar_t* path : {L"C:", L"C:\\Data", L"\\\\server\\share\\x", L"relative\\path", L"\\"})
        EXPECT_EQ(JoinPath(path, L""), path) << Utf8(path);
}

TEST(VerbatimPath, PutsThePrefixInFront) {
    EXPECT_EQ(Scanner::VerbatimPath(L"C:\\Data", false), LR"(\\?\C:\Data)");
    EXPECT_EQ(Scanner::VerbatimPath(L"C:\\Data", true), LR"(\\?\C:\Data)");
    EXPECT_EQ(Scanner::VerbatimPath(LR"(\\server\share)", false), LR"(\\?\\\server\share)");
    EXPECT_EQ(Scanner::VerbatimPath(LR"(\\server\share)", true), LR"(\\?\UNC\server\share)");
}
