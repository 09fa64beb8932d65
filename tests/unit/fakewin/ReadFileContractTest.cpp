// Reading files by their handles.
#include <gtest/gtest.h>

#include <array>
#include <string>

#include "support/TempFolder.h"
#include "winlib/Windows.h"

namespace {

HANDLE Open(const std::wstring& path) {
    return CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                       nullptr, OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr);
}

// The next bytes of a file.
std::string ReadNext(HANDLE file) {
    std::array<char, 4> buffer;
    DWORD read = 99;
    EXPECT_TRUE(ReadFile(file, buffer.data(), static_cast<DWORD>(buffer.size()), &read, nullptr));
    return {buffer.data(), read};
}

}  // namespace

TEST(ReadFileContract, ReadsPieceByPieceToTheEnd) {
    const TestSupport::TempFolder folder;
    folder.AddFile(L"file", std::string("abcdefg"));
    const HANDLE file = Open(folder.Path(L"file"));
    ASSERT_NE(file, INVALID_HANDLE_VALUE);
    EXPECT_EQ(ReadNext(file), "abcd");
    EXPECT_EQ(ReadNext(file), "efg");
    EXPECT_EQ(ReadNext(file), "");
    EXPECT_TRUE(CloseHandle(file));
}

TEST(ReadFileContract, ASizeWithoutContentsIsZeros) {
    const TestSupport::TempFolder folder;
    folder.AddFile(L"file", 5);
    const HANDLE file = Open(folder.Path(L"file"));
    ASSERT_NE(file, INVALID_HANDLE_VALUE);
    EXPECT_EQ(ReadNext(file), std::string(4, '\0'));
    EXPECT_EQ(ReadNext(file), std::string(1, '\0'));
    EXPECT_EQ(ReadNext(file), "");
    EXPECT_TRUE(CloseHandle(file));
}

TEST(ReadFileContract, AnOpenFileMayBeDeleted) {
    const TestSupport::TempFolder folder;
    folder.AddFile(L"file", std::string("abc"));
    const HANDLE file = Open(folder.Path(L"file"));
    EXPECT_TRUE(DeleteFileW(folder.Path(L"file").c_str()));
    EXPECT_EQ(ReadNext(file), "abc");
    EXPECT_TRUE(CloseHandle(file));
}

TEST(ReadFileContract, WhatCannotBeOpenedHasNoHandle) {
    const TestSupport::TempFolder folder;
    folder.AddFolder(L"Sub");
    EXPECT_EQ(Open(folder.Path(L"missing")), INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_FILE_NOT_FOUND));
    EXPECT_EQ(Open(folder.Path(L"missing\\below")), INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_PATH_NOT_FOUND));
    EXPECT_EQ(Open(folder.Path(L"Sub")), INVALID_HANDLE_VALUE);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_ACCESS_DENIED));
}
