#include "writers/ListFile.h"

#include <gtest/gtest.h>
#include <share.h>

#include <cstdio>
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

// What a test has opened itself, in text mode.
class OpenStream {
public:
    explicit OpenStream(const std::wstring& path) : file_(_wfsopen(path.c_str(), L"w", _SH_DENYNO)) {}
    ~OpenStream() { Close(); }
    OpenStream(const OpenStream&) = delete;
    OpenStream& operator=(const OpenStream&) = delete;

    std::FILE* Get() const { return file_; }
    void Close() {
        if (file_ != nullptr)
            std::fclose(file_);
        file_ = nullptr;
    }

private:
    std::FILE* file_;
};

TEST(ListFile, WritesNothingToAnOpenStreamAtTheEndOfALine) {
    const TempFolder folder;
    const OpenStream stream(folder.Path(L"list"));
    ListFile file(stream.Get());
    EXPECT_TRUE(file.good());
    file << "one" << std::endl << "two" << std::endl;
    EXPECT_EQ(folder.Read(L"list"), "");
    EXPECT_TRUE(file.Finish());
    EXPECT_EQ(folder.Read(L"list"), "one\r\ntwo\r\n");
}

TEST(ListFile, LeavesAStreamOpenThatTheCallerHasOpened) {
    const TempFolder folder;
    OpenStream stream(folder.Path(L"list"));
    ListFile(stream.Get()) << "dropped without its end" << std::endl;
    for (const char* const line : {"two", "three"}) {
        ListFile file(stream.Get());
        file << line << std::endl;
        EXPECT_TRUE(file.Finish());
    }
    std::fputs("four", stream.Get());
    stream.Close();
    EXPECT_EQ(folder.Read(L"list"), "two\r\nthree\r\nfour");
}

TEST(ListFile, TakesLinesOfAnyLengthOnAnOpenStream) {
    const TempFolder folder;
    const OpenStream stream(folder.Path(L"list"));
    ListFile file(stream.Get());
    std::string expected;
    for (int i = 0; i < 30000; ++i) {
        file << "line " << i << std::endl;
        expected += "line " + std::to_string(i) + "\r\n";
    }
    const std::string line(200000, 'x');
    file << line << std::endl;
    EXPECT_TRUE(file.Finish());
    EXPECT_EQ(folder.Read(L"list"), expected + line + "\r\n");
}

TEST(ListFile, FinishWritesTheRestOfAFileOfItsOwnToo) {
    const TempFolder folder;
    ListFile file(folder.Path(L"list").c_str());
    file << "one";
    EXPECT_TRUE(file.Finish());
    EXPECT_EQ(folder.Read(L"list"), "one");
    EXPECT_FALSE(ListFile(folder.Path(L"Missing\\list").c_str()).Finish());
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
