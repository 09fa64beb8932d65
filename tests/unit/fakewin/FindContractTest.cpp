// Enumerating a folder.
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <string>

#include "support/Platform.h"
#include "support/TempFolder.h"
#include "support/Text.h"
#include "winlib/Windows.h"

using TestSupport::TempFolder;
using TestSupport::Utf8;

namespace {

// All entries in order and the error with which the enumeration ended; no entries if it could not begin.
struct Enumeration {
    std::vector<WIN32_FIND_DATAW> entries;
    DWORD error = 0;

    std::vector<std::wstring> Names() const {
        std::vector<std::wstring> names;
        for (const WIN32_FIND_DATAW& entry : entries)
            names.emplace_back(entry.cFileName);
        return names;
    }
};

Enumeration Enumerate(const std::wstring& query) {
    Enumeration result;
    WIN32_FIND_DATAW data;
    const HANDLE find = FindFirstFileExW(query.c_str(), FindExInfoBasic, &data, FindExSearchNameMatch,
                                         nullptr, FIND_FIRST_EX_LARGE_FETCH);
    if (find == INVALID_HANDLE_VALUE) {
        result.error = GetLastError();
        return result;
    }
    do {
        result.entries.push_back(data);
    } while (FindNextFileW(find, &data));
    result.error = GetLastError();
    EXPECT_TRUE(FindClose(find));
    return result;
}

std::wstring Query(const std::wstring& path) {
    return LR"(\\?\)" + path + LR"(\*)";
}

}  // namespace

TEST(FindContract, AnEmptyFolderHasItsTwoDots) {
    const TempFolder folder;
    const Enumeration found = Enumerate(Query(folder.Path()));
    EXPECT_EQ(found.Names(), (std::vector<std::wstring>{L".", L".."}));
    EXPECT_EQ(found.error, static_cast<DWORD>(ERROR_NO_MORE_FILES));
}

TEST(FindContract, TheRootOfADriveHasNoDots) {
    const Enumeration found = Enumerate(LR"(\\?\C:\*)");
    ASSERT_FALSE(found.entries.empty());
    EXPECT_EQ(std::ranges::count(found.Names(), L"."), 0);
    EXPECT_EQ(std::ranges::count(found.Names(), L".."), 0);
}

TEST(FindContract, ReturnsNameAttributesAndSize) {
    const TempFolder folder;
    folder.AddFolder(L"sub");
    folder.AddFile(L"small.txt", std::string("12345"));
    folder.AddFile(L"hidden", 1, FILE_ATTRIBUTE_HIDDEN);
    folder.AddFile(L"big", 0x1'2345'6789);
    std::map<std::wstring, WIN32_FIND_DATAW> entries;
    for (const WIN32_FIND_DATAW& entry : Enumerate(Query(folder.Path())).entries)
        entries[entry.cFileName] = entry;

    EXPECT_EQ(entries.size(), 6u);
    EXPECT_NE(entries[L"sub"].dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY, 0u);
    EXPECT_EQ(entries[L"small.txt"].dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY, 0u);
    EXPECT_NE(entries[L"small.txt"].dwFileAttributes & FILE_ATTRIBUTE_ARCHIVE, 0u);
    EXPECT_EQ(entries[L"small.txt"].nFileSizeLow, 5u);
    EXPECT_EQ(entries[L"small.txt"].nFileSizeHigh, 0u);
    EXPECT_NE(entries[L"hidden"].dwFileAttributes & FILE_ATTRIBUTE_HIDDEN, 0u);
    EXPECT_EQ(entries[L"big"].nFileSizeLow, 0x2345'6789u);
    EXPECT_EQ(entries[L"big"].nFileSizeHigh, 1u);
}

TEST(FindContract, KeepsTheCaseOfNamesAndFindsThemInAnyCase) {
    const TempFolder folder;
    folder.AddFile(L"Deep\\ReadMe.TXT");
    const Enumeration found = Enumerate(Query(folder.Path() + L"\\dEEP"));
    EXPECT_EQ(found.Names(), (std::vector<std::wstring>{L".", L"..", L"ReadMe.TXT"}));
}

TEST(FindContract, FailsWithTheErrorOfTheCause) {
    const TempFolder folder;
    folder.AddFolder(L"sub");
    const struct {
        std::wstring query;
        DWORD error;
    } rows[] = {
        {Query(folder.Path(L"missing")), ERROR_PATH_NOT_FOUND},
        {Query(folder.Path(L"missing\\below")), ERROR_PATH_NOT_FOUND},
        {Query(folder.Path(L"in<valid")), ERROR_INVALID_NAME},
        {Query(folder.Path(L"in|valid")), ERROR_INVALID_NAME},
        {Query(folder.Path(L"in*valid")), ERROR_INVALID_NAME},
        {Query(folder.Path() + L"\\"), ERROR_INVALID_NAME},
        {LR"(\\?\\\server\share\*)", ERROR_INVALID_NAME},
        {LR"(\\?\\*)", ERROR_INVALID_NAME},
        {LR"(\\?\Photos\*)", ERROR_PATH_NOT_FOUND},
        {LR"(\\?\)" + folder.Path(L"missing"), ERROR_FILE_NOT_FOUND},
        {LR"(\\?\)" + folder.Path(L"sub\\nothing*"), ERROR_FILE_NOT_FOUND},
    };
    for (const auto& row : rows) {
        const Enumeration found = Enumerate(row.query);
        EXPECT_EQ(found.error, row.error) << Utf8(row.query);
        EXPECT_TRUE(found.entries.empty()) << Utf8(row.query);
    }
}

TEST(FindContract, AFileHasNothingInIt) {
    const TempFolder folder;
    folder.AddFile(L"file");
    const Enumeration found = Enumerate(Query(folder.Path(L"file")));
    EXPECT_TRUE(found.entries.empty());
    EXPECT_NE(found.error, static_cast<DWORD>(ERROR_ACCESS_DENIED));
    EXPECT_NE(found.error, static_cast<DWORD>(ERROR_NOT_SUPPORTED));
}

TEST(FindContract, ThePrefixTakesAPathUnchanged) {
    const TempFolder folder;
    folder.AddFile(L"sub\\file");
    EXPECT_EQ(Enumerate(folder.Path(L"sub/*")).entries.size(), 3u);
    EXPECT_EQ(Enumerate(folder.Path(L"sub\\..\\sub\\.\\*")).entries.size(), 3u);
    // Wine 10 takes the forward slash for a backslash here too.
    const bool wineTakesSlashes = TestSupport::WineVersion() >= 10;
    EXPECT_EQ(Enumerate(LR"(\\?\)" + folder.Path(L"sub/*")).entries.empty(), !wineTakesSlashes);
}

TEST(FindContract, ReachesPathsOfAnyLength) {
    const TempFolder folder;
    std::wstring deep = L"d";
    while (deep.size() < 600)
        deep += L"\\" + std::wstring(40, L'd');
    folder.AddFile(deep + L"\\file");
    EXPECT_EQ(Enumerate(Query(folder.Path(deep))).Names(), (std::vector<std::wstring>{L".", L"..", L"file"}));
}

TEST(FindContract, NamesMayHoldLettersOfAnyScript) {
    const TempFolder folder;
    const std::wstring name = TestSupport::Wide("\xC3\xA4\xCE\xB1\xD0\x96\xE4\xB8\xAD\xF0\x9F\x98\x80");
    folder.AddFile(name);
    const std::vector<std::wstring> names = Enumerate(Query(folder.Path())).Names();
    EXPECT_EQ(std::ranges::count(names, name), 1) << Utf8(names.back());
}
