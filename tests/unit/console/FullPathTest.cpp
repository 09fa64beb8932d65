#include "console/FullPath.h"

#include <gtest/gtest.h>

#include "console/Errors.h"
#include "support/TempFolder.h"

using Console::FullPath;
using Console::LongPath;

TEST(ConsoleFullPath, ResolvesDotsAndSlashes) {
    EXPECT_EQ(FullPath(L"C:\\Data\\.\\a\\..\\b"), L"C:\\Data\\b");
    EXPECT_EQ(FullPath(L"C:/Data/b"), L"C:\\Data\\b");
    EXPECT_EQ(FullPath(L"C:\\"), L"C:\\");
    EXPECT_EQ(FullPath(L"\\\\server\\share\\a\\..\\b"), L"\\\\server\\share\\b");
}

TEST(ConsoleFullPath, RelativePathsBeginInTheCurrentFolder) {
    const std::wstring current = FullPath(L".");
    EXPECT_EQ(current.substr(1, 2), L":\\");
    const std::wstring separator = current.ends_with(L'\\') ? L"" : L"\\";
    EXPECT_EQ(FullPath(L"a\\b"), current + separator + L"a\\b");
}

TEST(ConsoleFullPath, RemovesThePrefix) {
    EXPECT_EQ(FullPath(LR"(\\?\C:\Data)"), L"C:\\Data");
    EXPECT_EQ(FullPath(LR"(\\?\UNC\server\share\a)"), LR"(\\server\share\a)");
}

TEST(ConsoleFullPath, AnEmptyTextIsNoPath) {
    try {
        FullPath(L"");
        FAIL();
    } catch (const Console::Error& error) {
        EXPECT_EQ(error.code, Console::ExitCode::WrongUsage);
        EXPECT_STREQ(error.what(), "'' is not a path");
    }
}

TEST(ConsoleLongPath, PutsThePrefixInFront) {
    EXPECT_EQ(LongPath(L"C:\\Data"), LR"(\\?\C:\Data)");
    EXPECT_EQ(LongPath(LR"(\\server\share\a)"), LR"(\\?\UNC\server\share\a)");
    EXPECT_EQ(LongPath(LR"(\\.\NUL)"), LR"(\\.\NUL)");
}
