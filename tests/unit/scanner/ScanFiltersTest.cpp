// What a scan keeps and what it leaves out.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "unit/scanner/ScanTest.h"

using namespace Scanner;

namespace {

using Names = std::vector<std::wstring>;

class ScanFilters : public ScanTest {};

}  // namespace

TEST_F(ScanFilters, CountsWhatItKeepsAlone) {
    options.searchPattern = L"*.txt";
    folder.AddFile(L"a\\x.txt", 10);
    folder.AddFile(L"a\\y.doc", 100);
    folder.AddFile(L"z.TXT", 1);
    ASSERT_TRUE(Run());
    EXPECT_EQ(SortedLines(result.root), (Names{L"a\\", L"a\\x.txt", L"z.TXT"}));
    EXPECT_EQ(result.root.folder->size, 11u);
    EXPECT_EQ(result.root.folder->totalFiles, 2u);
}

TEST_F(ScanFilters, KeepsFoldersWhateverTheSearchPattern) {
    options.searchPattern = L"nothing";
    folder.AddFile(L"a\\b\\x.txt");
    ASSERT_TRUE(Run());
    EXPECT_EQ(SortedLines(result.root), (Names{L"a\\", L"a\\b\\"}));
}

TEST_F(ScanFilters, LeavesExcludedFoldersOutWithAllBelowThem) {
    options.excludedFolders = {L"*\\.git", folder.Path(L"TEMP\\")};
    folder.AddFile(L"Temp\\x");
    folder.AddFile(L"Temp\\sub\\x");
    folder.AddFile(L"Temp2\\x");
    folder.AddFile(L"app\\.git\\objects\\x");
    folder.AddFile(L"app\\.gitignore");
    folder.AddFile(L"sub\\Temp\\x");
    ASSERT_TRUE(Run());
    EXPECT_EQ(SortedLines(result.root), (Names{L"Temp2\\", L"Temp2\\x", L"app\\", L"app\\.gitignore",
                                               L"sub\\", L"sub\\Temp\\", L"sub\\Temp\\x"}));
}

TEST_F(ScanFilters, NeverExcludesTheRoot) {
    options.excludedFolders = {folder.Path(), L"?:\\*"};
    folder.AddFile(L"x");
    folder.AddFolder(L"sub");
    ASSERT_TRUE(Run());
    EXPECT_EQ(SortedLines(result.root), (Names{L"x"}));
}

TEST_F(ScanFilters, DoesNotEnterHiddenFoldersIfTheyAreSkipped) {
    folder.AddFile(L"hidden\\plain.txt");
    folder.AddFolder(L"hidden", FILE_ATTRIBUTE_HIDDEN);
    folder.AddFile(L"secret.txt", 5, FILE_ATTRIBUTE_HIDDEN);
    folder.AddFile(L"system.txt", 0, FILE_ATTRIBUTE_SYSTEM);
    folder.AddFile(L"both.txt", 0, FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_HIDDEN);
    options.attributeMask = SkipHidden;
    ASSERT_TRUE(Run());
    EXPECT_EQ(SortedLines(result.root), (Names{L"system.txt"}));
    EXPECT_EQ(result.root.folder->size, 0u);

    Result all;
    options.attributeMask = 0;
    ASSERT_TRUE(Scan(all, options, folder.Path()));
    EXPECT_EQ(SortedLines(all.root),
              (Names{L"both.txt", L"hidden\\", L"hidden\\plain.txt", L"secret.txt", L"system.txt"}));
}
