// Registration and its removal when the registry or the memory fails, and the notification of the shell.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "contextmenu/FailingAllocation.h"
#include "contextmenu/ImportHook.h"
#include "contextmenu/LoadedModule.h"
#include "support/TestRegistry.h"

namespace {

constexpr LSTATUS Refused = ERROR_ACCESS_DENIED;
const HRESULT RefusedResult = HRESULT_FROM_WIN32(ERROR_ACCESS_DENIED);
const std::wstring UserClasses = L"Software\\Classes\\";

// What the replaced functions count and do.
int writes = 0;
int failingWrite = 0;
int deletions = 0;
int failingDeletion = 0;
int opened = 0;
int closed = 0;
int notifications = 0;

LSTATUS WINAPI Write(HKEY key, LPCWSTR subkey, LPCWSTR name, DWORD type, LPCVOID data, DWORD size) {
    return ++writes == failingWrite ? Refused : RegSetKeyValueW(key, subkey, name, type, data, size);
}

LSTATUS WINAPI Create(HKEY key, LPCWSTR subkey, DWORD reserved, LPWSTR type, DWORD options, REGSAM access,
                      LPSECURITY_ATTRIBUTES security, HKEY* result, DWORD* disposition) {
    ++opened;
    return RegCreateKeyExW(key, subkey, reserved, type, options, access, security, result, disposition);
}

LSTATUS WINAPI RefuseToCreate(HKEY, LPCWSTR, DWORD, LPWSTR, DWORD, REGSAM, LPSECURITY_ATTRIBUTES, HKEY*,
                              DWORD*) {
    return Refused;
}

LSTATUS WINAPI Close(HKEY key) {
    ++closed;
    return RegCloseKey(key);
}

LSTATUS WINAPI Delete(HKEY key, LPCWSTR subkey) {
    return ++deletions == failingDeletion ? Refused : RegDeleteTreeW(key, subkey);
}

void WINAPI Notify(LONG event, UINT flags, LPCVOID first, LPCVOID second) {
    ++notifications;
    EXPECT_EQ(event, SHCNE_ASSOCCHANGED);
    EXPECT_EQ(flags, UINT{SHCNF_IDLIST | SHCNF_FLUSHNOWAIT});
    EXPECT_EQ(first, nullptr);
    EXPECT_EQ(second, nullptr);
}

class RegistrationFaultsTest : public testing::Test {
protected:
    RegistrationFaultsTest() {
        writes = failingWrite = deletions = failingDeletion = opened = closed = notifications = 0;
    }
    ~RegistrationFaultsTest() override { module_.Install(FALSE, L"user"); }

    // The keys of the handler that the user's classes have.
    std::vector<std::wstring> Keys() const {
        std::vector<std::wstring> found;
        for (const std::wstring& key : {std::wstring(L"CLSID\\") + HandlerClassId,
                                        std::wstring(L"Directory\\shellex\\ContextMenuHandlers\\Tamblewick"),
                                        std::wstring(L"Drive\\shellex\\ContextMenuHandlers\\Tamblewick")})
            if (registry_.KeyExists(UserClasses + key))
                found.push_back(key);
        return found;
    }

    const LoadedModule module_;
    const TestSupport::TestRegistry registry_;
};

TEST_F(RegistrationFaultsTest, AllThreeKeysComeAndGo) {
    EXPECT_EQ(module_.Install(TRUE, L"USER"), S_OK);
    EXPECT_EQ(Keys().size(), 3u);
    EXPECT_EQ(module_.Install(FALSE, L"User"), S_OK);
    EXPECT_EQ(Keys(), std::vector<std::wstring>{});
}

TEST_F(RegistrationFaultsTest, RefusedWriteIsReportedAndLeavesNoKey) {
    const ImportHook hook(module_.Handle(), "RegSetKeyValueW", Write);
    for (failingWrite = 1; failingWrite <= 4; ++failingWrite) {
        writes = 0;
        EXPECT_EQ(module_.Install(TRUE, L"user"), RefusedResult) << failingWrite;
        EXPECT_EQ(writes, failingWrite);
        EXPECT_EQ(Keys(), std::vector<std::wstring>{}) << failingWrite;
    }
}

TEST_F(RegistrationFaultsTest, RefusedDeletionIsReportedAndTheOtherKeysAreDeleted) {
    const ImportHook hook(module_.Handle(), "RegDeleteTreeW", Delete);
    for (failingDeletion = 1; failingDeletion <= 3; ++failingDeletion) {
        EXPECT_EQ(module_.Install(TRUE, L"user"), S_OK);
        deletions = 0;
        EXPECT_EQ(module_.Install(FALSE, L"user"), RefusedResult) << failingDeletion;
        EXPECT_EQ(deletions, 3);
        EXPECT_EQ(Keys().size(), 1u) << failingDeletion;
    }
}

TEST_F(RegistrationFaultsTest, RefusedClassesOfTheUserAreReported) {
    const ImportHook hook(module_.Handle(), "RegCreateKeyExW", RefuseToCreate);
    EXPECT_EQ(module_.Install(TRUE, L"user"), RefusedResult);
    EXPECT_EQ(Keys(), std::vector<std::wstring>{});
}

TEST_F(RegistrationFaultsTest, WithoutMemoryNothingStaysOpen) {
    const ImportHook create(module_.Handle(), "RegCreateKeyExW", Create);
    const ImportHook close(module_.Handle(), "RegCloseKey", Close);
    bool failed = true;
    for (int failing = 1; failed; ++failing) {
        opened = closed = 0;
        const FailingAllocation allocation(module_.Handle(), failing);
        const HRESULT result = module_.Install(TRUE, L"user");
        failed = allocation.HasFailed();
        EXPECT_EQ(result, failed ? E_OUTOFMEMORY : S_OK) << failing;
        EXPECT_EQ(opened, 1) << failing;
        EXPECT_EQ(closed, 1) << failing;
    }
    EXPECT_EQ(Keys().size(), 3u);
}

TEST_F(RegistrationFaultsTest, ShellHearsOfRegistrationAndRemoval) {
    const ImportHook hook(module_.Handle(), "SHChangeNotify", Notify);
    EXPECT_EQ(module_.Install(TRUE, L"user"), S_OK);
    EXPECT_EQ(notifications, 1);
    EXPECT_EQ(module_.Install(FALSE, L"user"), S_OK);
    EXPECT_EQ(notifications, 2);
}

}  // namespace
