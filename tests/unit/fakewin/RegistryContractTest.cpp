// Values of the registry: types, sizes and rights.
#include <gtest/gtest.h>

#include <cstring>

#include "support/TestRegistry.h"
#include "winlib/RegistryKey.h"
#include "winlib/Windows.h"

using TestSupport::TestRegistry;

namespace {

constexpr wchar_t Path[] = L"Software\\Tamblewick";
constexpr DWORD Unit = sizeof(wchar_t);

class RegistryContract : public testing::Test {
protected:
    RegistryKey Open(REGSAM access, const wchar_t* path = Path) const {
        RegistryKey key;
        RegCreateKeyExW(HKEY_CURRENT_USER, path, 0, nullptr, 0, access, nullptr, key.Receive(), nullptr);
        return key;
    }

    static LSTATUS Set(const RegistryKey& key, const wchar_t* name, const wchar_t* text) {
        return RegSetValueExW(key.Get(), name, 0, REG_SZ, reinterpret_cast<const BYTE*>(text),
                              static_cast<DWORD>((std::wcslen(text) + 1) * Unit));
    }

    static LSTATUS Query(const RegistryKey& key, const wchar_t* name, DWORD* type = nullptr,
                         void* data = nullptr, DWORD* size = nullptr) {
        return RegQueryValueExW(key.Get(), name, nullptr, type, static_cast<BYTE*>(data), size);
    }

    const TestRegistry registry;
};

}  // namespace

TEST_F(RegistryContract, KeepsTypeAndSize) {
    const RegistryKey key = Open(KEY_ALL_ACCESS);
    EXPECT_EQ(Set(key, L"Text", L"abc"), ERROR_SUCCESS);
    DWORD type = 0;
    DWORD size = 0;
    EXPECT_EQ(Query(key, L"Text", &type, nullptr, &size), ERROR_SUCCESS);
    EXPECT_EQ(type, static_cast<DWORD>(REG_SZ));
    EXPECT_EQ(size, 4 * Unit);
    EXPECT_EQ(registry.Get(Path, L"Text"), TestSupport::StringValue(L"abc"));
}

TEST_F(RegistryContract, AShortBufferLearnsTheSizeItNeeds) {
    const RegistryKey key = Open(KEY_ALL_ACCESS);
    Set(key, L"Text", L"abc");
    wchar_t buffer[8] = L"#######";
    DWORD type = 0;
    DWORD size = 3 * Unit;
    EXPECT_EQ(Query(key, L"Text", &type, buffer, &size), ERROR_MORE_DATA);
    EXPECT_EQ(type, static_cast<DWORD>(REG_SZ));
    EXPECT_EQ(size, 4 * Unit);
    size = sizeof buffer;
    EXPECT_EQ(Query(key, L"Text", &type, buffer, &size), ERROR_SUCCESS);
    EXPECT_EQ(size, 4 * Unit);
    EXPECT_STREQ(buffer, L"abc");
    EXPECT_EQ(buffer[4], L'#');
}

TEST_F(RegistryContract, TextWithoutTerminatorGetsOneWhereThereIsRoom) {
    registry.SetRaw(Path, L"Text", REG_SZ, TestSupport::TextData(L"abc"));
    const RegistryKey key = Open(KEY_READ);
    wchar_t buffer[8] = L"#######";
    DWORD size = sizeof buffer;
    EXPECT_EQ(Query(key, L"Text", nullptr, buffer, &size), ERROR_SUCCESS);
    EXPECT_EQ(size, 3 * Unit);
    EXPECT_EQ(buffer[3], L'\0');
    std::wmemset(buffer, L'#', 8);
    size = 3 * Unit;
    EXPECT_EQ(Query(key, L"Text", nullptr, buffer, &size), ERROR_SUCCESS);
    EXPECT_EQ(buffer[3], L'#');
}

TEST_F(RegistryContract, HoldsDataOfAnyBytesAndSizes) {
    const std::string odd("\x01\x00\xFF", 3);
    registry.SetRaw(Path, L"Odd", REG_BINARY, odd);
    registry.SetRaw(Path, L"Empty", REG_SZ, "");
    registry.SetRaw(Path, L"LongDword", REG_DWORD, "12345678");
    EXPECT_EQ(registry.Get(Path, L"Odd"), (TestSupport::RegistryValue{REG_BINARY, odd}));
    EXPECT_EQ(registry.Get(Path, L"Empty"), (TestSupport::RegistryValue{REG_SZ, ""}));
    EXPECT_EQ(registry.Get(Path, L"LongDword"), (TestSupport::RegistryValue{REG_DWORD, "12345678"}));
}

TEST_F(RegistryContract, AValueIsReplacedWithItsType) {
    registry.SetString(Path, L"Value", L"text");
    registry.SetDword(Path, L"VALUE", 7);
    EXPECT_EQ(registry.Get(Path, L"value"), TestSupport::DwordValue(7));
    EXPECT_EQ(registry.ValueNames(Path), std::vector<std::wstring>{L"Value"});
}

TEST_F(RegistryContract, TheUnnamedValueIsAValueToo) {
    registry.SetString(Path, L"", L"default");
    wchar_t buffer[16] = {};
    DWORD size = sizeof buffer;
    EXPECT_EQ(RegQueryValueExW(Open(KEY_READ).Get(), nullptr, nullptr, nullptr,
                               reinterpret_cast<BYTE*>(buffer), &size),
              ERROR_SUCCESS);
    EXPECT_STREQ(buffer, L"default");
}

TEST_F(RegistryContract, ReportsWhatIsMissing) {
    const RegistryKey key = Open(KEY_ALL_ACCESS);
    EXPECT_EQ(Query(key, L"Nothing"), ERROR_FILE_NOT_FOUND);
    EXPECT_EQ(RegDeleteValueW(key.Get(), L"Nothing"), ERROR_FILE_NOT_FOUND);
    RegistryKey missing;
    EXPECT_EQ(
        RegOpenKeyExW(HKEY_CURRENT_USER, L"Software\\Tamblewick\\Nothing", 0, KEY_READ, missing.Receive()),
        ERROR_FILE_NOT_FOUND);
}

TEST_F(RegistryContract, AHandleAllowsWhatItWasOpenedFor) {
    registry.SetString(Path, L"Text", L"abc");
    registry.CreateKey(L"Software\\Tamblewick\\Sub");
    const RegistryKey reading = Open(KEY_READ);
    EXPECT_EQ(Query(reading, L"Text"), ERROR_SUCCESS);
    EXPECT_EQ(Set(reading, L"Text", L"new"), ERROR_ACCESS_DENIED);
    EXPECT_EQ(RegDeleteValueW(reading.Get(), L"Text"), ERROR_ACCESS_DENIED);

    const RegistryKey writing = Open(KEY_WRITE);
    EXPECT_EQ(Query(writing, L"Text"), ERROR_ACCESS_DENIED);
    wchar_t name[8];
    DWORD length = 8;
    EXPECT_EQ(RegEnumKeyExW(writing.Get(), 0, name, &length, nullptr, nullptr, nullptr, nullptr),
              ERROR_ACCESS_DENIED);
    EXPECT_EQ(Set(writing, L"Text", L"new"), ERROR_SUCCESS);
    EXPECT_EQ(registry.Get(Path, L"Text"), TestSupport::StringValue(L"new"));
}

TEST_F(RegistryContract, AClosedOrForeignHandleIsNone) {
    DWORD size = 0;
    const auto none = reinterpret_cast<HKEY>(static_cast<ULONG_PTR>(0x7770));
    EXPECT_EQ(RegQueryValueExW(none, L"Text", nullptr, nullptr, nullptr, &size), ERROR_INVALID_HANDLE);
    EXPECT_EQ(RegCloseKey(none), ERROR_INVALID_HANDLE);
}
