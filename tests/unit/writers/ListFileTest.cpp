#include "writers/ListFile.h"

#include <gtest/gtest.h>

#include <locale>
#include <string>

#include "support/TempFolder.h"

namespace {

using TestSupport::TempFolder;

TEST(ListFile, WritesEachLineFeedAsCrLf) {
    const TempFolder folder;
    ListFile(folder.Path(L"list").c_str()) << "a\n\nb" << std::endl << "\r\n" << std::flush;
    EXPECT_EQ(folder.Read(L"list"), "a\r\n\r\nb\r\n\r\r\n");
}

TEST(ListFile, EmptiesAnOlderFile) {
    const TempFolder folder;
    folder.AddFile(L"list", std::string("older and longer"));
    { ListFile file(folder.Path(L"list").c_str()); }
    EXPECT_EQ(folder.Read(L"list"), "");
}

TEST(ListFile, FlushedTextIsInTheFileAndTheRestFollowsAtTheEnd) {
    const TempFolder folder;
    {
        ListFile file(folder.Path(L"list").c_str());
        file << "one" << std::endl << "two";
        EXPECT_EQ(folder.Read(L"list"), "one\r\n");
    }
    EXPECT_EQ(folder.Read(L"list"), "one\r\ntwo");
}

TEST(ListFile, OthersMayWriteMeanwhile) {
    const TempFolder folder;
    const ListFile first(folder.Path(L"list").c_str());
    const ListFile second(folder.Path(L"list").c_str());
    EXPECT_TRUE(first.good());
    EXPECT_TRUE(second.good());
}

TEST(ListFile, TakesLinesOfAnyLength) {
    const TempFolder folder;
    std::string line;
    for (int i = 0; line.size() < 200000; ++i)
        line += std::to_string(i) + " ";
    {
        ListFile file(folder.Path(L"list").c_str());
        for (const char c : line)
            file.put(c);
        file << std::endl << line << std::endl;
    }
    EXPECT_EQ(folder.Read(L"list"), line + "\r\n" + line + "\r\n");
}

// Digits in groups, and a comma in the place of the point.
class Foreign : public std::numpunct<char> {
protected:
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

TEST(ListFile, NumbersKeepTheNeutralLocale) {
    const TempFolder folder;
    const std::locale before = std::locale::global(std::locale(std::locale::classic(), new Foreign));
    ListFile(folder.Path(L"list").c_str()) << 1234567 << " " << 0.5;
    std::locale::global(before);
    EXPECT_EQ(folder.Read(L"list"), "1234567 0.5");
}

TEST(ListFile, FailsInSilenceIfItCannotBeOpened) {
    const TempFolder folder;
    ListFile file(folder.Path(L"Missing\\list").c_str());
    EXPECT_TRUE(file.fail());
    EXPECT_EQ(file.exceptions(), std::ios_base::goodbit);
    file << "text" << 1 << std::endl;
    EXPECT_TRUE(file.fail());
    EXPECT_FALSE(folder.Exists(L"Missing"));
}

}  // namespace
