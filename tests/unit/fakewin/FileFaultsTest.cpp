// The stand-in's file system: order, attributes, breaking enumerations, full disks.
#include <gtest/gtest.h>

#include <share.h>
#include <cerrno>
#include <cstdio>

#include "fakewin/FakeWin.h"
#include "winlib/Windows.h"

#include <bcrypt.h>

using FakeWin::Call;

namespace {

struct Listing {
    std::vector<std::wstring> names;
    DWORD error;
};

Listing List(const std::wstring& query) {
    Listing listing;
    WIN32_FIND_DATAW data;
    const HANDLE find =
        FindFirstFileExW(query.c_str(), FindExInfoBasic, &data, FindExSearchNameMatch, nullptr, 2);
    if (find == INVALID_HANDLE_VALUE)
        return {{}, GetLastError()};
    do
        listing.names.emplace_back(data.cFileName);
    while (FindNextFileW(find, &data));
    listing.error = GetLastError();
    FindClose(find);
    return listing;
}

FILE* OpenList(const wchar_t* path = L"C:\\Temp\\list.txt") {
    return _wfsopen(path, L"w", _SH_DENYNO);
}

}  // namespace

TEST(FakeFiles, EnumerateInTheOrderOfAdding) {
    for (const wchar_t* name : {L"b", L"a", L"c"})
        FakeWin::AddFile(std::wstring(L"C:\\Data\\") + name);
    FakeWin::AddFile(L"C:\\Data\\A", 5);
    EXPECT_EQ(List(LR"(\\?\C:\Data\*)").names, (std::vector<std::wstring>{L".", L"..", L"b", L"a", L"c"}));
}

TEST(FakeFiles, HoldAnyAttributesTimesAndNames) {
    const std::wstring lone = {wchar_t(0xD800), L'x'};
    FakeWin::AddFile(L"C:\\Data\\" + lone, 0xFFFF'FFFF'FFFF'FFFF, 0x1234567);
    const FILETIME time = FakeWin::MakeFileTime(2001, 2, 3, 4, 5, 6);
    FakeWin::SetTimes(L"C:\\Data\\" + lone, time, {}, {});
    WIN32_FIND_DATAW data;
    const HANDLE find = FindFirstFileExW((LR"(\\?\C:\Data\)" + lone).c_str(), FindExInfoBasic, &data,
                                         FindExSearchNameMatch, nullptr, 0);
    ASSERT_NE(find, INVALID_HANDLE_VALUE);
    EXPECT_EQ(data.cFileName, lone);
    EXPECT_EQ(data.dwFileAttributes, 0x1234567u);
    EXPECT_EQ(data.nFileSizeHigh, 0xFFFFFFFFu);
    EXPECT_EQ(CompareFileTime(&data.ftCreationTime, &time), 0);
    FakeWin::SetAttributes(L"C:\\Data\\" + lone, 1);
    EXPECT_EQ(GetFileAttributesW((L"C:\\Data\\" + lone).c_str()), 1u);
    FindClose(find);
}

TEST(FakeFiles, LieOnDrivesAndShares) {
    FakeWin::AddFile(L"D:\\x\\y");
    FakeWin::AddFile(L"\\\\server\\share\\folder\\file");
    EXPECT_EQ(List(L"d:\\X\\*").names.size(), 3u);
    EXPECT_EQ(List(L"\\\\SERVER\\share\\folder\\*").names.size(), 3u);
    EXPECT_EQ(List(LR"(\\?\UNC\server\share\*)").names, std::vector<std::wstring>{L"folder"});
    EXPECT_EQ(List(LR"(\\?\E:\*)").error, static_cast<DWORD>(ERROR_PATH_NOT_FOUND));
    FakeWin::RemoveEntry(L"D:\\x");
    EXPECT_FALSE(FakeWin::EntryExists(L"D:\\x\\y"));
}

TEST(FakeFiles, PathsWithoutThePrefixAreLimited) {
    const std::wstring name(250, L'n');
    FakeWin::AddFile(L"C:\\Data\\" + name + L"\\x");
    EXPECT_EQ(List(L"C:\\Data\\" + name + L"\\*").error, static_cast<DWORD>(ERROR_PATH_NOT_FOUND));
    EXPECT_EQ(List(LR"(\\?\C:\Data\)" + name + L"\\*").names.size(), 3u);
}

TEST(FakeFiles, AnEnumerationBreaksOffWhereItIsAskedTo) {
    for (const wchar_t* name : {L"a", L"b", L"c"})
        FakeWin::AddFile(std::wstring(L"C:\\Data\\") + name);
    FakeWin::FailFindNext(L"C:\\Data", 4, 1117);
    Listing listing = List(LR"(\\?\C:\Data\*)");
    EXPECT_EQ(listing.names.size(), 4u);
    EXPECT_EQ(listing.error, 1117u);

    FakeWin::FailFindNext(L"C:\\Data", 1, ERROR_NO_MORE_FILES);
    listing = List(LR"(\\?\C:\Data\*)");
    EXPECT_EQ(listing.names, std::vector<std::wstring>{L"."});
    EXPECT_EQ(listing.error, static_cast<DWORD>(ERROR_NO_MORE_FILES));

    FakeWin::FailFindNext(L"C:\\Data", 0, ERROR_NO_MORE_FILES);
    listing = List(LR"(\\?\C:\Data\*)");
    EXPECT_TRUE(listing.names.empty());
    EXPECT_EQ(listing.error, static_cast<DWORD>(ERROR_NO_MORE_FILES));
}

TEST(FakeFiles, AFolderCanBeRefused) {
    FakeWin::AddFile(L"C:\\Data\\x");
    FakeWin::FailOn(Call::FindFirstFileExW, L"C:\\Data", 50, 1);
    FakeWin::FailOn(Call::FindFirstFileExW, L"C:\\Data", 5);
    EXPECT_EQ(List(LR"(\\?\C:\Data\*)").error, 50u);
    EXPECT_EQ(List(LR"(\\?\C:\Data\*)").error, 5u);
    FakeWin::FailOn(Call::FindFirstFileExW, L"C:\\", 5);
    EXPECT_EQ(List(LR"(\\?\C:\*)").error, 5u);
}

TEST(FakeFiles, QueriesAreRecorded) {
    List(LR"(\\?\C:\Temp\*)");
    const std::vector<FakeWin::FindCall> calls = FakeWin::FindCalls();
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_EQ(calls[0].query, LR"(\\?\C:\Temp\*)");
    EXPECT_EQ(calls[0].level, FindExInfoBasic);
    EXPECT_EQ(calls[0].flags, 2u);
}

TEST(FakeFiles, OpenHandlesAreKnown) {
    WIN32_FIND_DATAW data;
    const HANDLE find =
        FindFirstFileExW(L"C:\\Temp\\*", FindExInfoBasic, &data, FindExSearchNameMatch, nullptr, 0);
    FILE* const file = OpenList();
    EXPECT_EQ(FakeWin::OpenFinds(), 1);
    EXPECT_EQ(FakeWin::OpenFiles(), 1);
    EXPECT_EQ(FakeWin::LeftOpen(), "find C:\\Temp\nfile C:\\Temp\\list.txt\n");
    EXPECT_TRUE(FindClose(find));
    EXPECT_FALSE(FindClose(find));
    std::fclose(file);
    EXPECT_EQ(FakeWin::LeftOpen(), "");
}

TEST(FakeFiles, EachFlushIsOneWrite) {
    FILE* const file = OpenList();
    for (int i = 0; i < 3; ++i) {
        std::fputs("two ", file);
        std::fputs("words\n", file);
        std::fflush(file);
    }
    std::fclose(file);
    EXPECT_EQ(FakeWin::WritesTo(L"C:\\Temp\\list.txt"), 3);
    EXPECT_EQ(FakeWin::WrittenFiles(), std::vector<std::wstring>{L"C:\\Temp\\list.txt"});
    EXPECT_EQ(FakeWin::Contents(L"C:\\Temp\\list.txt"), "two words\r\ntwo words\r\ntwo words\r\n");
}

TEST(FakeFiles, BinaryModeAddsNothing) {
    FILE* const file = _wfsopen(L"C:\\Temp\\b", L"wb", _SH_DENYNO);
    std::fputs("a\n", file);
    std::fclose(file);
    EXPECT_EQ(FakeWin::Contents(L"C:\\Temp\\b"), "a\n");
    EXPECT_EQ(_wfsopen(L"C:\\Temp\\b", L"r", _SH_DENYNO), nullptr);
}

TEST(FakeFiles, ADiskCanBeFull) {
    FakeWin::FailWritesAfter(L"C:\\Temp\\list.txt", 5);
    FILE* const file = OpenList();
    std::fputs("ab\n", file);
    EXPECT_EQ(std::fflush(file), 0);
    std::fputs("cdef", file);
    EXPECT_NE(std::fflush(file), 0);
    std::fclose(file);
    EXPECT_EQ(FakeWin::Contents(L"C:\\Temp\\list.txt"), "ab\r\nc");
}

TEST(FakeFiles, OpeningAndWritingCanFail) {
    FakeWin::FailOn(Call::OpenFile, L"C:\\Temp\\list.txt", ERROR_ACCESS_DENIED, 1);
    EXPECT_EQ(OpenList(), nullptr);
    EXPECT_EQ(errno, EACCES);
    FakeWin::FailNth(Call::WriteFile, 1, ERROR_GEN_FAILURE);
    FILE* const file = OpenList();
    std::fputs("lost", file);
    EXPECT_NE(std::fflush(file), 0);
    std::fclose(file);
    EXPECT_EQ(FakeWin::Contents(L"C:\\Temp\\list.txt"), "");
    EXPECT_EQ(OpenList(L"C:\\Missing\\list.txt"), nullptr);
    EXPECT_EQ(errno, ENOENT);
}

TEST(FakeFiles, ClosingCanFailAndClosesAllTheSame) {
    FakeWin::FailNth(Call::CloseFile, 1, ERROR_DISK_FULL);
    FILE* const file = OpenList();
    std::fputs("kept", file);
    EXPECT_EQ(std::fclose(file), EOF);
    EXPECT_EQ(FakeWin::OpenFiles(), 0);
    EXPECT_EQ(FakeWin::Contents(L"C:\\Temp\\list.txt"), "kept");
}

TEST(FakeFiles, ProtectedFilesAreNotReplaced) {
    for (const DWORD attribute : std::initializer_list<DWORD>{FILE_ATTRIBUTE_READONLY, FILE_ATTRIBUTE_HIDDEN,
                                                              FILE_ATTRIBUTE_SYSTEM}) {
        FakeWin::AddFile(L"C:\\Temp\\list.txt", std::string("kept"), attribute);
        EXPECT_EQ(OpenList(), nullptr) << attribute;
        EXPECT_EQ(FakeWin::Contents(L"C:\\Temp\\list.txt"), "kept");
    }
}

TEST(FakeFiles, TheSystemsPathsAreSettable) {
    wchar_t buffer[64];
    FakeWin::SetTempPath(L"D:\\Scratch\\");
    EXPECT_EQ(GetTempPathW(64, buffer), 11u);
    EXPECT_STREQ(buffer, L"D:\\Scratch\\");
    FakeWin::SetTempPathResult(276);
    EXPECT_EQ(GetTempPathW(64, buffer), 276u);
    FakeWin::SetModulePath(L"C:\\PROGRA~1\\prog.exe");
    EXPECT_EQ(GetModuleFileNameW(nullptr, buffer, 64), 20u);
    FakeWin::SetLongPath(L"C:\\PROGRA~1\\prog.exe", L"C:\\Program Files\\prog.exe");
    EXPECT_EQ(GetLongPathNameW(buffer, buffer, 64), 25u);
    EXPECT_STREQ(buffer, L"C:\\Program Files\\prog.exe");
    EXPECT_EQ(GetLongPathNameW(L"C:\\x", buffer, 64), 4u);
}

TEST(HandleFaults, AFileThatIsReadFailsAtEachCall) {
    FakeWin::AddFile(L"C:\\Temp\\file", std::string("abc"));
    const auto open = [] {
        return CreateFileW(L"C:\\Temp\\file", GENERIC_READ,
                           FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING, 0,
                           nullptr);
    };
    FakeWin::FailNth(Call::CreateFileW, 1, ERROR_SHARING_VIOLATION);
    EXPECT_EQ(open(), INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_SHARING_VIOLATION));
    const HANDLE file = open();
    EXPECT_EQ(FakeWin::LeftOpen(), "file C:\\Temp\\file\n");
    char buffer[4];
    DWORD read = 99;
    FakeWin::FailOn(Call::ReadFile, L"C:\\Temp\\file", ERROR_LOCK_VIOLATION, 1);
    EXPECT_FALSE(ReadFile(file, buffer, sizeof(buffer), &read, nullptr));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_LOCK_VIOLATION));
    EXPECT_EQ(read, 0u);
    EXPECT_TRUE(ReadFile(file, buffer, sizeof(buffer), &read, nullptr));
    EXPECT_EQ(read, 3u);
    EXPECT_TRUE(CloseHandle(file));
    EXPECT_EQ(FakeWin::LeftOpen(), "");
}

TEST(HandleFaults, HashesFailAtEachCall) {
    BCRYPT_ALG_HANDLE algorithm;
    BCRYPT_HASH_HANDLE hash;
    unsigned char data[32] = {};
    for (const Call call : {Call::BCryptOpenAlgorithmProvider, Call::BCryptCreateHash, Call::BCryptHashData,
                            Call::BCryptFinishHash})
        FakeWin::FailNth(call, 1, 0xC0000001);
    EXPECT_FALSE(
        BCRYPT_SUCCESS(BCryptOpenAlgorithmProvider(&algorithm, BCRYPT_SHA256_ALGORITHM, nullptr, 0)));
    EXPECT_EQ(BCryptOpenAlgorithmProvider(&algorithm, BCRYPT_SHA256_ALGORITHM, nullptr, 0), 0);
    EXPECT_FALSE(BCRYPT_SUCCESS(BCryptCreateHash(algorithm, &hash, nullptr, 0, nullptr, 0, 0)));
    EXPECT_EQ(BCryptCreateHash(algorithm, &hash, nullptr, 0, nullptr, 0, 0), 0);
    EXPECT_FALSE(BCRYPT_SUCCESS(BCryptHashData(hash, data, 1, 0)));
    EXPECT_FALSE(BCRYPT_SUCCESS(BCryptFinishHash(hash, data, 32, 0)));
    EXPECT_EQ(FakeWin::LeftOpen(), "algorithm\nhash\n");
    EXPECT_EQ(BCryptDestroyHash(hash), 0);
    EXPECT_EQ(BCryptCloseAlgorithmProvider(algorithm, 0), 0);
    EXPECT_EQ(FakeWin::LeftOpen(), "");
}
