// Mutexes with a name.
#include <gtest/gtest.h>

#include <thread>

#include "winlib/Windows.h"

namespace {

constexpr wchar_t Name[] = L"Local\\Tamblewick contract test";

// What waiting returns on another thread, which releases the mutex again.
DWORD WaitElsewhere(HANDLE mutex, DWORD milliseconds) {
    DWORD result = 0;
    std::thread([&] {
        result = WaitForSingleObject(mutex, milliseconds);
        if (result == WAIT_OBJECT_0)
            ReleaseMutex(mutex);
    }).join();
    return result;
}

}  // namespace

TEST(MutexContract, OneThreadHasItAtATime) {
    const HANDLE mutex = CreateMutexW(nullptr, FALSE, Name);
    ASSERT_NE(mutex, nullptr);
    EXPECT_EQ(WaitElsewhere(mutex, 0), static_cast<DWORD>(WAIT_OBJECT_0));
    EXPECT_EQ(WaitForSingleObject(mutex, INFINITE), static_cast<DWORD>(WAIT_OBJECT_0));
    EXPECT_EQ(WaitElsewhere(mutex, 10), static_cast<DWORD>(WAIT_TIMEOUT));
    EXPECT_TRUE(ReleaseMutex(mutex));
    EXPECT_EQ(WaitElsewhere(mutex, 0), static_cast<DWORD>(WAIT_OBJECT_0));
    EXPECT_TRUE(CloseHandle(mutex));
}

TEST(MutexContract, TheNameIsThatOfOneMutex) {
    const HANDLE first = CreateMutexW(nullptr, FALSE, Name);
    const HANDLE second = CreateMutexW(nullptr, FALSE, Name);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_ALREADY_EXISTS));
    EXPECT_NE(first, second);
    EXPECT_EQ(WaitForSingleObject(first, 0), static_cast<DWORD>(WAIT_OBJECT_0));
    EXPECT_EQ(WaitElsewhere(second, 0), static_cast<DWORD>(WAIT_TIMEOUT));
    EXPECT_TRUE(ReleaseMutex(first));
    EXPECT_TRUE(CloseHandle(first));
    EXPECT_EQ(WaitElsewhere(second, 0), static_cast<DWORD>(WAIT_OBJECT_0));
    EXPECT_TRUE(CloseHandle(second));
}

TEST(MutexContract, ItsThreadMayWaitForItAgain) {
    const HANDLE mutex = CreateMutexW(nullptr, FALSE, Name);
    EXPECT_EQ(WaitForSingleObject(mutex, 0), static_cast<DWORD>(WAIT_OBJECT_0));
    EXPECT_EQ(WaitForSingleObject(mutex, 0), static_cast<DWORD>(WAIT_OBJECT_0));
    EXPECT_TRUE(ReleaseMutex(mutex));
    EXPECT_EQ(WaitElsewhere(mutex, 0), static_cast<DWORD>(WAIT_TIMEOUT));
    EXPECT_TRUE(ReleaseMutex(mutex));
    EXPECT_EQ(WaitElsewhere(mutex, 0), static_cast<DWORD>(WAIT_OBJECT_0));
    CloseHandle(mutex);
}

TEST(MutexContract, OnlyItsThreadReleasesIt) {
    const HANDLE mutex = CreateMutexW(nullptr, FALSE, Name);
    EXPECT_FALSE(ReleaseMutex(mutex));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_NOT_OWNER));
    CloseHandle(mutex);
}
