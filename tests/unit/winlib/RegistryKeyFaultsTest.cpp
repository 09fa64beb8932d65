#include <gtest/gtest.h>

#include "FakeWin.h"
#include "support/TestRegistry.h"
#include "winlib/RegistryKey.h"

using namespace TestSupport;
using FakeWin::Call;

namespace {

const std::wstring Path = L"Software\\Tamblewick\\Test";
const std::wstring Subject = L"HKCU\\Software\\Tamblewick\\Test";

class RegistryKeyFaults : public testing::Test {
protected:
    RegistryKeyFaults() {
        for (const wchar_t* name : {L"\\a\\b\\c", L"\\a\\d", L"\\e"})
            registry_.CreateKey(Path + name);
        EXPECT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, Path.c_str(), 0, KEY_ALL_ACCESS, key_.Receive()),
                  ERROR_SUCCESS);
    }

    const TestRegistry registry_;
    RegistryKey key_;
};

TEST_F(RegistryKeyFaults, AValueWhoseDataCannotBeFetchedLeavesTheResult) {
    std::wstring text = L"old";
    registry_.SetString(Path, L"Value", L"new");
    FakeWin::FailNth(Call::RegQueryValueExW, 2, ERROR_MORE_DATA);
    EXPECT_FALSE(key_.ReadString(L"Value", text));
    EXPECT_EQ(text, L"old");
    std::vector<std::wstring> list{L"old"};
    registry_.SetStringList(Path, L"Value", {L"new"});
    FakeWin::FailNth(Call::RegQueryValueExW, 2, ERROR_MORE_DATA);
    EXPECT_FALSE(key_.ReadStringList(L"Value", list));
    EXPECT_EQ(list, std::vector<std::wstring>{L"old"});
}

TEST_F(RegistryKeyFaults, AFailedWriteIsReported) {
    FakeWin::Fail(Call::RegSetValueExW, ERROR_ACCESS_DENIED);
    EXPECT_FALSE(key_.WriteDword(L"Value", 1));
    EXPECT_FALSE(key_.WriteStringList(L"Value", {L"a"}));
}

TEST_F(RegistryKeyFaults, AnEnumerationThatCannotBeginIsEmpty) {
    FakeWin::Fail(Call::RegQueryInfoKeyW, ERROR_ACCESS_DENIED, 1);
    EXPECT_TRUE(key_.EnumerateSubkeys().empty());
    EXPECT_EQ(FakeWin::Uses(Call::RegEnumKeyExW), 0);
}

TEST_F(RegistryKeyFaults, ASubkeyThatCannotBeEnumeratedIsSkipped) {
    FakeWin::FailNth(Call::RegEnumKeyExW, 1, ERROR_ACCESS_DENIED);
    EXPECT_EQ(key_.EnumerateSubkeys(), std::vector<std::wstring>{L"e"});
}

TEST_F(RegistryKeyFaults, DeleteTreeTriesTheKeyThatItCannotOpen) {
    FakeWin::FailOn(Call::RegOpenKeyExW, Subject + L"\\e", ERROR_ACCESS_DENIED, 1);
    EXPECT_TRUE(key_.DeleteTree(L"e"));
    EXPECT_FALSE(registry_.KeyExists(Path + L"\\e"));

    FakeWin::FailOn(Call::RegOpenKeyExW, Subject + L"\\a", ERROR_ACCESS_DENIED, 1);
    EXPECT_FALSE(key_.DeleteTree(L"a"));
    EXPECT_TRUE(registry_.KeyExists(Path + L"\\a\\b\\c"));
}

TEST_F(RegistryKeyFaults, DeleteTreeGoesOnWhenAKeyBelowStays) {
    FakeWin::FailOn(Call::RegDeleteKeyW, Subject + L"\\a\\b", ERROR_ACCESS_DENIED, 1);
    EXPECT_FALSE(key_.DeleteTree(L"a"));
    EXPECT_EQ(registry_.Subkeys(Path + L"\\a"), std::vector<std::wstring>{L"b"});
    EXPECT_TRUE(registry_.Subkeys(Path + L"\\a\\b").empty());
}

TEST_F(RegistryKeyFaults, DeleteTreeOpensWithAllAccessAndClosesBeforeItDeletes) {
    FakeWin::ClearLog();
    EXPECT_TRUE(key_.DeleteTree(L"a"));
    int open = 0;
    for (const FakeWin::LoggedCall& logged : FakeWin::Log()) {
        if (logged.call == Call::RegOpenKeyExW) {
            EXPECT_EQ(logged.detail, DWORD{0xF003F});
            ++open;
        } else if (logged.call == Call::RegCloseKey) {
            --open;
        } else if (logged.call == Call::RegDeleteKeyW && logged.subject == Subject + L"\\a") {
            EXPECT_EQ(open, 0);
        }
    }
    EXPECT_EQ(open, 0);
}

}  // namespace
