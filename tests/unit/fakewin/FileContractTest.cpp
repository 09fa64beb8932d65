// Asking for one file, and writing one in text mode.
#include <gtest/gtest.h>

#include <share.h>
#include <cstdio>
#include <cstring>
#include <cwchar>

#include "support/TempFolder.h"
#include "support/Text.h"
#include "winlib/Windows.h"

using TestSupport::TempFolder;
using TestSupport::Utf8;

namespace {

constexpr FILETIME Moment = {0x1234'5600, 0x01D0'0000};

}  // namespace

TEST(AttributesContract, FindsWhatExists) {
    const TempFolder folder;
    folder.AddFolder(L"Sub");
    folder.AddFile(L"file.txt");
    EXPECT_NE(GetFileAttributesW(folder.Path(L"Sub").c_str()) & FILE_ATTRIBUTE_DIRECTORY, 0u);
    EXPECT_NE(GetFileAttributesW(folder.Path(L"sUB\\").c_str()), INVALID_FILE_ATTRIBUTES);
    EXPECT_EQ(GetFileAttributesW(folder.Path(L"FILE.TXT").c_str()) & FILE_ATTRIBUTE_DIRECTORY, 0u);
    EXPECT_NE(GetFileAttributesW((LR"(\\?\)" + folder.Path(L"file.txt")).c_str()), INVALID_FILE_ATTRIBUTES);
}

TEST(AttributesContract, ReportsWhatIsMissing) {
    const TempFolder folder;
    folder.AddFile(L"file.txt");
    const struct {
        std::wstring path;
        DWORD error;
    } rows[] = {
        {folder.Path(L"missing"), ERROR_FILE_NOT_FOUND},
        {folder.Path(L"missing\\below"), ERROR_PATH_NOT_FOUND},
        {folder.Path(L"file.txt\\below"), ERROR_PATH_NOT_FOUND},
        {folder.Path(L"a*"), ERROR_INVALID_NAME},
        {L"", ERROR_PATH_NOT_FOUND},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(GetFileAttributesW(row.path.c_str()), INVALID_FILE_ATTRIBUTES) << Utf8(row.path);
        EXPECT_EQ(GetLastError(), row.error) << Utf8(row.path);
    }
}

TEST(AttributesContract, AVolumeIsNoFolder) {
    WIN32_FILE_ATTRIBUTE_DATA data;
    EXPECT_FALSE(GetFileAttributesExW(LR"(\\?\C:)", GetFileExInfoStandard, &data));
    EXPECT_TRUE(GetFileAttributesExW(LR"(\\?\C:\)", GetFileExInfoStandard, &data));
}

TEST(AttributesContract, ComeWithSizeAndTimes) {
    const TempFolder folder;
    folder.AddFile(L"file", 0x1'0000'0007);
    const FILETIME written = {Moment.dwLowDateTime, Moment.dwHighDateTime + 1};
    folder.SetTimes(L"file", Moment, Moment, written);
    WIN32_FILE_ATTRIBUTE_DATA data = {};
    ASSERT_TRUE(GetFileAttributesExW(folder.Path(L"file").c_str(), GetFileExInfoStandard, &data));
    EXPECT_EQ(data.nFileSizeHigh, 1u);
    EXPECT_EQ(data.nFileSizeLow, 7u);
    EXPECT_EQ(CompareFileTime(&data.ftLastWriteTime, &written), 0);
    EXPECT_EQ(CompareFileTime(&data.ftLastAccessTime, &Moment), 0);
}

TEST(ListFileContract, ALineFeedBecomesTwoBytes) {
    const TempFolder folder;
    FILE* const file = _wfsopen(folder.Path(L"list.txt").c_str(), L"w", _SH_DENYNO);
    ASSERT_NE(file, nullptr);
    EXPECT_GE(std::fputs("a\nb\r\n\n", file), 0);
    EXPECT_EQ(std::fclose(file), 0);
    EXPECT_EQ(folder.Read(L"list.txt"), "a\r\nb\r\r\n\r\n");
}

TEST(ListFileContract, ReplacesAnExistingFile) {
    const TempFolder folder;
    folder.AddFile(L"list.txt", std::string("much longer than what follows"));
    FILE* const file = _wfsopen(folder.Path(L"list.txt").c_str(), L"w", _SH_DENYNO);
    ASSERT_NE(file, nullptr);
    std::fputs("new", file);
    std::fclose(file);
    EXPECT_EQ(folder.Read(L"list.txt"), "new");
}

TEST(ListFileContract, AFlushReachesTheDisk) {
    const TempFolder folder;
    FILE* const file = _wfsopen(folder.Path(L"list.txt").c_str(), L"w", _SH_DENYNO);
    ASSERT_NE(file, nullptr);
    std::fputs("line\n", file);
    EXPECT_EQ(folder.Read(L"list.txt"), "");
    EXPECT_EQ(std::fflush(file), 0);
    EXPECT_EQ(folder.Read(L"list.txt"), "line\r\n");
    std::fclose(file);
}

TEST(ListFileContract, CannotBeOpenedEverywhere) {
    const TempFolder folder;
    folder.AddFolder(L"sub");
    for (const wchar_t* path : {L"sub", L"missing\\list.txt", L"li<st.txt", L"sub\\"})
        EXPECT_EQ(_wfsopen(folder.Path(path).c_str(), L"w", _SH_DENYNO), nullptr) << Utf8(path);
}

TEST(TempPathContract, EndsInABackslashAndAsksForRoom) {
    wchar_t buffer[276];
    const DWORD length = GetTempPathW(276, buffer);
    ASSERT_GT(length, 0u);
    ASSERT_LT(length, 276u);
    EXPECT_EQ(std::wcslen(buffer), length);
    EXPECT_EQ(buffer[length - 1], L'\\');
    EXPECT_EQ(GetTempPathW(2, buffer), length + 1);
}

TEST(ModulePathContract, IsCutAtTheEndOfTheBuffer) {
    wchar_t whole[4096];
    const DWORD length = GetModuleFileNameW(nullptr, whole, 4096);
    ASSERT_GT(length, 5u);
    EXPECT_EQ(std::wcslen(whole), length);
    wchar_t cut[5];
    EXPECT_EQ(GetModuleFileNameW(nullptr, cut, 5), 5u);
    EXPECT_EQ(std::wstring(cut, 4), std::wstring(whole, 4));
}

TEST(ReadContract, ReadsTheBytesOfAFile) {
    const TempFolder folder;
    const std::string bytes("a\r\n\x1A\0z", 6);
    folder.AddFile(L"file.txt", bytes);
    FILE* const file = _wfsopen(folder.Path(L"file.txt").c_str(), L"rb", _SH_DENYNO);
    ASSERT_NE(file, nullptr);
    char buffer[16];
    EXPECT_EQ(fread(buffer, 1, 4, file), 4u);
    EXPECT_EQ(fread(buffer + 4, 1, 12, file), 2u);
    EXPECT_EQ(std::string(buffer, 6), bytes);
    EXPECT_NE(feof(file), 0);
    EXPECT_EQ(ferror(file), 0);
    EXPECT_EQ(fclose(file), 0);
    EXPECT_EQ(folder.Read(L"file.txt"), bytes);
}

TEST(ReadContract, OpensOnlyFilesThatExist) {
    const TempFolder folder;
    folder.AddFolder(L"Sub");
    EXPECT_EQ(_wfsopen(folder.Path(L"missing").c_str(), L"rb", _SH_DENYNO), nullptr);
    EXPECT_EQ(_wfsopen(folder.Path(L"Sub").c_str(), L"rb", _SH_DENYNO), nullptr);
    EXPECT_FALSE(folder.Exists(L"missing"));
}
