// Keys of the registry: making, listing and deleting them.
#include <gtest/gtest.h>

#include "support/TestRegistry.h"
#include "support/Text.h"
#include "winlib/RegistryKey.h"
#include "winlib/Windows.h"

using TestSupport::TestRegistry;

namespace {

constexpr wchar_t Path[] = L"Software\\Tamblewick";

RegistryKey Create(const wchar_t* path, REGSAM access = KEY_ALL_ACCESS, DWORD* disposition = nullptr) {
    RegistryKey key;
    EXPECT_EQ(
        RegCreateKeyExW(HKEY_CURRENT_USER, path, 0, nullptr, 0, access, nullptr, key.Receive(), disposition),
        ERROR_SUCCESS);
    return key;
}

LSTATUS Delete(const wchar_t* path) {
    return RegDeleteKeyW(HKEY_CURRENT_USER, path);
}

}  // namespace

TEST(RegistryKeyContract, MakesTheParentsToo) {
    const TestRegistry registry;
    DWORD disposition = 0;
    Create(L"Software\\Tamblewick\\a\\b", KEY_READ, &disposition);
    EXPECT_EQ(disposition, static_cast<DWORD>(REG_CREATED_NEW_KEY));
    EXPECT_EQ(registry.Subkeys(Path), std::vector<std::wstring>{L"a"});
    Create(L"Software\\Tamblewick\\A", KEY_READ, &disposition);
    EXPECT_EQ(disposition, static_cast<DWORD>(REG_OPENED_EXISTING_KEY));
    EXPECT_EQ(registry.Subkeys(Path), std::vector<std::wstring>{L"a"});
}

TEST(RegistryKeyContract, PathsIgnoreCaseAndABackslashAtTheEnd) {
    const TestRegistry registry;
    registry.SetDword(L"Software\\Tamblewick\\Sub", L"Value", 1);
    for (const wchar_t* path : {L"software\\TAMBLEWICK\\sub", L"Software\\Tamblewick\\Sub\\"}) {
        RegistryKey key;
        EXPECT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, path, 0, KEY_READ, key.Receive()), ERROR_SUCCESS)
            << TestSupport::Utf8(path);
        EXPECT_EQ(RegQueryValueExW(key.Get(), L"Value", nullptr, nullptr, nullptr, nullptr), ERROR_SUCCESS)
            << TestSupport::Utf8(path);
    }
}

TEST(RegistryKeyContract, ListsSubkeysSortedWithoutRegardToCase) {
    const TestRegistry registry;
    for (const wchar_t* name : {L"b", L"A", L"a1", L"Z", L"0", L"10", L"9"})
        registry.CreateKey(std::wstring(Path) + L"\\" + name);
    EXPECT_EQ(registry.Subkeys(Path),
              (std::vector<std::wstring>{L"0", L"10", L"9", L"A", L"a1", L"b", L"Z"}));
}

TEST(RegistryKeyContract, ReturnsTheNumberOfSubkeysAndTheLongestName) {
    const TestRegistry registry;
    registry.CreateKey(std::wstring(Path) + L"\\short");
    registry.CreateKey(std::wstring(Path) + L"\\the longest");
    registry.SetDword(Path, L"Value", 7);
    DWORD subkeys = 0;
    DWORD longest = 0;
    DWORD values = 0;
    EXPECT_EQ(RegQueryInfoKeyW(Create(Path, KEY_READ).Get(), nullptr, nullptr, nullptr, &subkeys, &longest,
                               nullptr, &values, nullptr, nullptr, nullptr, nullptr),
              ERROR_SUCCESS);
    EXPECT_EQ(subkeys, 2u);
    EXPECT_EQ(longest, 11u);
    EXPECT_EQ(values, 1u);
}

TEST(RegistryKeyContract, AListedNameNeedsRoomForItsTerminator) {
    const TestRegistry registry;
    registry.CreateKey(std::wstring(Path) + L"\\abc");
    const RegistryKey key = Create(Path, KEY_READ);
    wchar_t name[8];
    DWORD length = 3;
    EXPECT_EQ(RegEnumKeyExW(key.Get(), 0, name, &length, nullptr, nullptr, nullptr, nullptr),
              ERROR_MORE_DATA);
    length = 4;
    EXPECT_EQ(RegEnumKeyExW(key.Get(), 0, name, &length, nullptr, nullptr, nullptr, nullptr), ERROR_SUCCESS);
    EXPECT_EQ(length, 3u);
    EXPECT_STREQ(name, L"abc");
    length = 8;
    EXPECT_EQ(RegEnumKeyExW(key.Get(), 1, name, &length, nullptr, nullptr, nullptr, nullptr),
              ERROR_NO_MORE_ITEMS);
}

TEST(RegistryKeyContract, AKeyWithSubkeysCannotBeDeleted) {
    const TestRegistry registry;
    registry.SetDword(L"Software\\Tamblewick\\a\\b", L"Value", 1);
    EXPECT_EQ(Delete(L"Software\\Tamblewick\\a"), ERROR_ACCESS_DENIED);
    EXPECT_EQ(Delete(L"Software\\Tamblewick\\a\\b"), ERROR_SUCCESS);
    EXPECT_EQ(Delete(L"Software\\Tamblewick\\a"), ERROR_SUCCESS);
    EXPECT_EQ(Delete(L"Software\\Tamblewick\\a"), ERROR_FILE_NOT_FOUND);
}

TEST(RegistryKeyContract, DeletingNeedsNoRightsOfTheHandle) {
    const TestRegistry registry;
    registry.CreateKey(L"Software\\Tamblewick\\a");
    EXPECT_EQ(RegDeleteKeyW(Create(Path, KEY_READ).Get(), L"a"), ERROR_SUCCESS);
    EXPECT_TRUE(registry.Subkeys(Path).empty());
}

TEST(RegistryKeyContract, AnOpenKeyThatWasDeletedIsDead) {
    const TestRegistry registry;
    const RegistryKey key = Create(L"Software\\Tamblewick\\a");
    EXPECT_EQ(Delete(L"Software\\Tamblewick\\a"), ERROR_SUCCESS);
    EXPECT_EQ(RegQueryValueExW(key.Get(), L"Value", nullptr, nullptr, nullptr, nullptr), ERROR_KEY_DELETED);
    EXPECT_EQ(RegSetValueExW(key.Get(), L"Value", 0, REG_BINARY, nullptr, 0), ERROR_KEY_DELETED);
}

TEST(RegistryKeyContract, AnEmptyPathIsTheKeyItself) {
    const TestRegistry registry;
    registry.SetDword(Path, L"Value", 7);
    const RegistryKey key = Create(Path, KEY_READ);
    RegistryKey again;
    EXPECT_EQ(RegOpenKeyExW(key.Get(), L"", 0, KEY_READ, again.Receive()), ERROR_SUCCESS);
    EXPECT_EQ(RegQueryValueExW(again.Get(), L"Value", nullptr, nullptr, nullptr, nullptr), ERROR_SUCCESS);
}
