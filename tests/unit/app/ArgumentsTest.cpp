#include "app/Arguments.h"

#include <gtest/gtest.h>

namespace {

struct Row {
    const wchar_t* line;
    std::vector<std::wstring> arguments;
};

const Row Lines[] = {
    // Nothing to split: the main window.
    {L"", {}},
    {L"   ", {}},
    {L" \t \n ", {}},
    {L"\"\"", {}},
    {L"\"\" \"\"", {}},
    {L"\"", {}},

    // Blanks of every kind and number separate.
    {L"abc", {L"abc"}},
    {L"  abc  ", {L"abc"}},
    {L"key C:\\Data", {L"key", L"C:\\Data"}},
    {L"key\tC:\\Data", {L"key", L"C:\\Data"}},
    {L"key \t\t C:\\Data\t", {L"key", L"C:\\Data"}},
    {L"key\r\nC:\\Data", {L"key", L"C:\\Data"}},
    {L"key\vC:\\Data\fx", {L"key", L"C:\\Data", L"x"}},
    {L"key C:\\Some Folder", {L"key", L"C:\\Some", L"Folder"}},
    {L"a b c d", {L"a", L"b", L"c", L"d"}},

    // Blanks inside quotes are kept.
    {L"key \"C:\\Some Folder\"", {L"key", L"C:\\Some Folder"}},
    {L"\"key\" \"C:\\Some\tFolder\"", {L"key", L"C:\\Some\tFolder"}},
    {L"\" \"", {L" "}},
    {L"key \"  C:\\Data  \"", {L"key", L"  C:\\Data  "}},

    // A quote ends a piece at any position.
    {L"ab\"c d\"e", {L"ab", L"c d", L"e"}},
    {L"\"a\"\"b\"", {L"a", L"b"}},
    {L"\"a\"b", {L"a", L"b"}},
    {L"a\"\"b", {L"a", L"b"}},

    // Nothing escapes a quote.
    {L"key \"C:\\Some Folder\\\"", {L"key", L"C:\\Some Folder\\"}},
    {L"key \"C:\\Some Folder\\\" third", {L"key", L"C:\\Some Folder\\", L"third"}},
    {L"\\\"a b\\\"", {L"\\", L"a b\\"}},
    {L"'a b'", {L"'a", L"b'"}},

    // A quote left open reaches to the end of the line.
    {L"key \"C:\\Some Folder", {L"key", L"C:\\Some Folder"}},
    {L"key \"C:\\Some Folder  ", {L"key", L"C:\\Some Folder  "}},

    // An empty quoted text is no argument, so that what follows moves up.
    {L"\"\" C:\\Data", {L"C:\\Data"}},
    {L"key \"\" C:\\Data", {L"key", L"C:\\Data"}},

    {L"key C:\\\u00C4pfel\\\u03A9", {L"key", L"C:\\\u00C4pfel\\\u03A9"}},
};

TEST(Arguments, AreSplitAtBlanksOutsideQuotesAndAtQuotes) {
    for (const Row& row : Lines)
        EXPECT_EQ(SplitArguments(row.line), row.arguments) << testing::PrintToString(std::wstring(row.line));
}

TEST(Arguments, OfAVeryLongLineAreAllKept) {
    const size_t count = 20000;
    std::wstring line;
    for (size_t i = 0; i < count; ++i)
        line += L"ab \"c d\"\t";
    const std::vector<std::wstring> arguments = SplitArguments(line);
    ASSERT_EQ(arguments.size(), 2 * count);
    EXPECT_EQ(arguments.front(), L"ab");
    EXPECT_EQ(arguments.back(), L"c d");
}

}  // namespace
