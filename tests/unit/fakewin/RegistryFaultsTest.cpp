// Keys and values that refuse.
#include <gtest/gtest.h>

#include <functional>

#include "fakewin/FakeWin.h"
#include "support/TestRegistry.h"
#include "winlib/Windows.h"

using FakeWin::Call;

namespace {

constexpr DWORD Error = ERROR_GEN_FAILURE;

class RegistryFaults : public testing::Test {
protected:
    RegistryFaults() {
        registry.SetDword(L"Software\\Tamblewick", L"Value", 7);
        registry.CreateKey(L"Software\\Tamblewick\\Sub");
        RegOpenKeyExW(HKEY_CURRENT_USER, L"Software\\Tamblewick", 0, KEY_ALL_ACCESS, &key);
    }
    ~RegistryFaults() override { RegCloseKey(key); }

    const TestSupport::TestRegistry registry;
    HKEY key = nullptr;
};

}  // namespace

TEST_F(RegistryFaults, EachCallReturnsTheErrorThatIsSetForItsSubject) {
    HKEY result = nullptr;
    wchar_t name[16];
    DWORD length = 16;
    const struct {
        Call call;
        const wchar_t* subject;
        std::function<LSTATUS()> use;
    } rows[] = {
        {Call::RegOpenKeyExW, L"HKCU\\Software\\Tamblewick\\Sub",
         [&] { return RegOpenKeyExW(key, L"Sub", 0, KEY_READ, &result); }},
        {Call::RegCreateKeyExW, L"HKCU\\Software\\Tamblewick\\New",
         [&] { return RegCreateKeyExW(key, L"New", 0, nullptr, 0, KEY_WRITE, nullptr, &result, nullptr); }},
        {Call::RegQueryValueExW, L"HKCU\\Software\\Tamblewick\\Value",
         [&] { return RegQueryValueExW(key, L"Value", nullptr, nullptr, nullptr, nullptr); }},
        {Call::RegSetValueExW, L"HKCU\\Software\\Tamblewick\\Value",
         [&] { return RegSetValueExW(key, L"Value", 0, REG_BINARY, nullptr, 0); }},
        {Call::RegDeleteValueW, L"HKCU\\Software\\Tamblewick\\Value",
         [&] { return RegDeleteValueW(key, L"Value"); }},
        {Call::RegEnumKeyExW, L"HKCU\\Software\\Tamblewick",
         [&] { return RegEnumKeyExW(key, 0, name, &length, nullptr, nullptr, nullptr, nullptr); }},
        {Call::RegEnumValueW, L"HKCU\\Software\\Tamblewick",
         [&] { return RegEnumValueW(key, 0, name, &length, nullptr, nullptr, nullptr, nullptr); }},
        {Call::RegQueryInfoKeyW, L"HKCU\\Software\\Tamblewick",
         [&] {
             return RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, &length, nullptr, nullptr, nullptr,
                                     nullptr, nullptr, nullptr, nullptr);
         }},
        {Call::RegDeleteKeyW, L"HKCU\\Software\\Tamblewick\\Sub", [&] { return RegDeleteKeyW(key, L"Sub"); }},
    };
    for (const auto& row : rows) {
        FakeWin::FailOn(row.call, row.subject, Error, 1);
        EXPECT_EQ(row.use(), static_cast<LSTATUS>(Error)) << static_cast<int>(row.call);
    }
    EXPECT_EQ(registry.Get(L"Software\\Tamblewick", L"Value"), TestSupport::DwordValue(7));
    EXPECT_EQ(registry.Subkeys(L"Software\\Tamblewick"), std::vector<std::wstring>{L"Sub"});
}

TEST_F(RegistryFaults, TheTestsOwnAccessIsNotConcerned) {
    FakeWin::Fail(Call::RegOpenKeyExW, Error);
    FakeWin::Fail(Call::RegQueryValueExW, Error);
    FakeWin::ClearLog();
    EXPECT_EQ(registry.Get(L"Software\\Tamblewick", L"Value"), TestSupport::DwordValue(7));
    EXPECT_TRUE(FakeWin::Log().empty());
}

TEST_F(RegistryFaults, OpenKeysAreKnown) {
    EXPECT_EQ(FakeWin::OpenKeys(), 1);
    EXPECT_EQ(FakeWin::LeftOpen(), "key HKCU\\Software\\Tamblewick\n");
    HKEY root = nullptr;
    EXPECT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, L"", 0, KEY_READ, &root), ERROR_SUCCESS);
    EXPECT_EQ(root, HKEY_CURRENT_USER);
    EXPECT_EQ(FakeWin::OpenKeys(), 1);
}

TEST_F(RegistryFaults, ClassesHaveTwoNames) {
    registry.SetString(L"Software\\Classes\\Drive", L"", L"here");
    HKEY drive = nullptr;
    EXPECT_EQ(RegOpenKeyExW(HKEY_CLASSES_ROOT, L"drive", 0, KEY_READ, &drive), ERROR_SUCCESS);
    EXPECT_EQ(FakeWin::Log().back().subject, L"HKCR\\drive");
    DWORD type = 0;
    DWORD size = 0;
    EXPECT_EQ(RegQueryValueExW(drive, nullptr, nullptr, &type, nullptr, &size), ERROR_SUCCESS);
    EXPECT_EQ(size, 5 * sizeof(wchar_t));
    RegCloseKey(drive);
}
