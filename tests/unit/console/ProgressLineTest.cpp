#include "console/list/ProgressLine.h"

#include <gtest/gtest.h>

#include "FakeWin.h"

using Console::ProgressLine;

namespace {

const std::string Counts = "\r3 entries, 1 folders: ";

}  // namespace

TEST(ProgressLine, ShowsCountsAndFolder) {
    ProgressLine line(true);
    line.Show(3, 1, L"C:\\Data");
    EXPECT_EQ(FakeWin::StandardError(), Counts + "C:\\Data");
}

TEST(ProgressLine, ShowsBytesAndFile) {
    ProgressLine line(true);
    line.ShowBytes(5, 1000, L"C:\\Data\\a\nb");
    EXPECT_EQ(FakeWin::StandardError(), "\r5 of 1000 bytes: C:\\Data\\a?b");
}

TEST(ProgressLine, ShowsNothingIfNotEnabled) {
    ProgressLine line(false);
    line.Show(3, 1, L"C:\\Data");
    line.ShowBytes(5, 1000, L"C:\\Data");
    line.Clear();
    EXPECT_EQ(FakeWin::StandardError(), "");
}

TEST(ProgressLine, AShorterLineCoversTheOneBefore) {
    ProgressLine line(true);
    line.Show(3, 1, L"C:\\Data");
    line.Show(3, 1, L"C:");
    EXPECT_EQ(FakeWin::StandardError(), Counts + "C:\\Data" + Counts + "C:     ");
}

TEST(ProgressLine, IsCutToTheWidthOfTheConsole) {
    FakeWin::SetErrorConsole(30);
    ProgressLine line(true);
    line.Show(3, 1, L"C:\\Data\\0123456789");
    EXPECT_EQ(FakeWin::StandardError(), "\r3 entries, 1 folders: C:\\Data");
}

TEST(ProgressLine, APairOfSurrogatesIsNotCutInHalf) {
    FakeWin::SetErrorConsole(25);
    ProgressLine line(true);
    line.Show(3, 1, std::wstring{L'a', 0xD83D, 0xDE00, L'b'});
    EXPECT_EQ(FakeWin::StandardError(), Counts + "a");
}

TEST(ProgressLine, CharactersThatMoveTheCursorAreReplaced) {
    ProgressLine line(true);
    line.Show(3, 1, L"a\nb\x1B[2Jc");
    EXPECT_EQ(FakeWin::StandardError(), Counts + "a?b?[2Jc");
}

TEST(ProgressLine, ClearingCoversTheLine) {
    {
        ProgressLine line(true);
        line.Show(3, 1, L"C:");
    }
    EXPECT_EQ(FakeWin::StandardError(), Counts + "C:\r" + std::string(24, ' ') + "\r");
}
