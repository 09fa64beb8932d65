#include "winlib/RegistryKey.h"

#include <gtest/gtest.h>

#include "support/TestRegistry.h"

using namespace TestSupport;

namespace {

const std::wstring Path = L"Software\\Tamblewick\\Test";

RegistryKey Open(const std::wstring& path) {
    RegistryKey key;
    EXPECT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, KEY_ALL_ACCESS, key.Receive()),
              ERROR_SUCCESS);
    return key;
}

class RegistryKeyTest : public testing::Test {
protected:
    RegistryKeyTest() {
        registry_.CreateKey(Path);
        key_ = Open(Path);
    }

    void Store(DWORD type, const std::string& data) const { registry_.SetRaw(Path, L"Value", type, data); }

    const TestRegistry registry_;
    RegistryKey key_;
};

TEST_F(RegistryKeyTest, HoldsNothingAtFirst) {
    const RegistryKey key;
    EXPECT_FALSE(key);
    EXPECT_EQ(key.Get(), nullptr);
}

// A closed key can no longer be asked for anything.
bool IsOpen(HKEY key) {
    return RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                            nullptr, nullptr, nullptr) == ERROR_SUCCESS;
}

TEST_F(RegistryKeyTest, ClosesItsKeyOnce) {
    HKEY handle = nullptr;
    {
        RegistryKey key = Open(Path);
        handle = key.Get();
        EXPECT_TRUE(IsOpen(handle));
        const RegistryKey moved(std::move(key));
        EXPECT_EQ(moved.Get(), handle);
        EXPECT_TRUE(IsOpen(handle));
    }
    EXPECT_FALSE(IsOpen(handle));
}

TEST_F(RegistryKeyTest, ReceiveClosesWhatWasHeld) {
    RegistryKey key = Open(Path);
    const HKEY handle = key.Get();
    *key.Receive() = nullptr;
    EXPECT_FALSE(IsOpen(handle));
    EXPECT_FALSE(key);
}

TEST_F(RegistryKeyTest, ReadStringGivesTheTextUpToItsFirstZero) {
    const std::pair<std::string, std::wstring> rows[] = {
        {TextData({L"abc\0", 4}), L"abc"},
        {TextData(L"abc"), L"abc"},
        {TextData({L"ab\0cd\0", 6}), L"ab"},
        {TextData({L"\0", 1}), L""},
        {"", L""},
    };
    for (const auto& [data, expected] : rows) {
        Store(REG_SZ, data);
        std::wstring text = L"old";
        EXPECT_TRUE(key_.ReadString(L"Value", text));
        EXPECT_EQ(text, expected);
    }
}

TEST_F(RegistryKeyTest, ReadStringOfAnOddNumberOfBytesIsSafe) {
    // One unit, and the half of another one.
    Store(REG_SZ, TextData(L"a") + "\x62");
    std::wstring text;
    EXPECT_TRUE(key_.ReadString(L"Value", text));
    EXPECT_EQ(text, L"ab");
}

TEST_F(RegistryKeyTest, ReadStringOfTheEmptyNameIsTheDefaultValue) {
    registry_.SetString(Path, L"", L"default");
    std::wstring text;
    EXPECT_TRUE(key_.ReadString(L"", text));
    EXPECT_EQ(text, L"default");
}

TEST_F(RegistryKeyTest, ReadStringOfAnotherTypeOrNothingFails) {
    std::wstring text = L"old";
    EXPECT_FALSE(key_.ReadString(L"Value", text));
    for (const DWORD type :
         std::initializer_list<DWORD>{REG_DWORD, REG_EXPAND_SZ, REG_MULTI_SZ, REG_BINARY, REG_NONE}) {
        Store(type, TextData({L"ab\0", 3}));
        EXPECT_FALSE(key_.ReadString(L"Value", text)) << type;
    }
    registry_.SetDword(Path, L"Value", 7);
    EXPECT_FALSE(key_.ReadString(L"Value", text));
    EXPECT_EQ(text, L"old");
}

TEST_F(RegistryKeyTest, ReadStringListAppendsUpToTheFirstEmptyString) {
    const std::pair<std::string, std::vector<std::wstring>> rows[] = {
        {TextData({L"a\0bc\0\0", 6}), {L"old", L"a", L"bc"}},
        {TextData({L"a\0\0b\0\0", 6}), {L"old", L"a"}},
        {TextData({L"a\0bc\0", 5}), {L"old", L"a", L"bc"}},
        {TextData({L"a\0bc", 4}), {L"old", L"a", L"bc"}},
        {TextData({L"\0", 1}), {L"old"}},
        {"", {L"old"}},
    };
    for (const auto& [data, expected] : rows) {
        Store(REG_MULTI_SZ, data);
        std::vector<std::wstring> list{L"old"};
        EXPECT_TRUE(key_.ReadStringList(L"Value", list));
        EXPECT_EQ(list, expected);
    }
}

TEST_F(RegistryKeyTest, ReadStringListOfAnOddNumberOfBytesIsSafe) {
    // The half of a unit after the last whole one takes up one of the zeros that end the list.
    Store(REG_MULTI_SZ, TextData({L"a\0b", 3}) + "\x63");
    std::vector<std::wstring> list;
    EXPECT_TRUE(key_.ReadStringList(L"Value", list));
    EXPECT_EQ(list, (std::vector<std::wstring>{L"a", L"bc"}));
}

TEST_F(RegistryKeyTest, ReadStringListOfAnotherTypeOrNothingFails) {
    std::vector<std::wstring> list{L"old"};
    EXPECT_FALSE(key_.ReadStringList(L"Value", list));
    for (const DWORD type : std::initializer_list<DWORD>{REG_DWORD, REG_SZ, REG_EXPAND_SZ, REG_BINARY}) {
        Store(type, TextData({L"a\0\0", 3}));
        EXPECT_FALSE(key_.ReadStringList(L"Value", list)) << type;
    }
    EXPECT_EQ(list, std::vector<std::wstring>{L"old"});
}

TEST_F(RegistryKeyTest, WriteStringListEndsWithOneMoreTerminator) {
    EXPECT_TRUE(key_.WriteStringList(L"Value", {L"a", L"bc"}));
    EXPECT_EQ(registry_.Get(Path, L"Value"), (RegistryValue{REG_MULTI_SZ, TextData({L"a\0bc\0\0", 6})}));
}

TEST_F(RegistryKeyTest, AnEmptyListIsOneZeroAndIsReadBack) {
    EXPECT_TRUE(key_.WriteStringList(L"Value", {}));
    EXPECT_EQ(registry_.Get(Path, L"Value"), (RegistryValue{REG_MULTI_SZ, TextData({L"\0", 1})}));
    std::vector<std::wstring> list;
    EXPECT_TRUE(key_.ReadStringList(L"Value", list));
    EXPECT_TRUE(list.empty());
}

TEST_F(RegistryKeyTest, WriteDwordWritesFourBytes) {
    EXPECT_TRUE(key_.WriteDword(L"Value", 0xFEDCBA98));
    EXPECT_EQ(registry_.Get(Path, L"Value"), (RegistryValue{REG_DWORD, "\x98\xBA\xDC\xFE"}));
}

TEST_F(RegistryKeyTest, ANullHolderFailsInEverything) {
    const RegistryKey key;
    std::wstring text = L"old";
    std::vector<std::wstring> list{L"old"};
    EXPECT_FALSE(key.ReadString(L"Value", text));
    EXPECT_FALSE(key.ReadStringList(L"Value", list));
    EXPECT_FALSE(key.WriteStringList(L"Value", {}));
    EXPECT_FALSE(key.WriteDword(L"Value", 1));
    EXPECT_TRUE(key.EnumerateSubkeys().empty());
    EXPECT_FALSE(key.DeleteTree(L"Value"));
    EXPECT_EQ(text, L"old");
    EXPECT_EQ(list.size(), 1u);
}

TEST_F(RegistryKeyTest, EnumerateSubkeysNamesTheDirectOnes) {
    EXPECT_TRUE(key_.EnumerateSubkeys().empty());
    const std::wstring longest(255, L'x');
    for (const std::wstring& name : {std::wstring(L"b"), std::wstring(L"a\\deep"), longest})
        registry_.CreateKey(Path + L"\\" + name);
    EXPECT_EQ(key_.EnumerateSubkeys(), (std::vector<std::wstring>{L"a", L"b", longest}));
}

TEST_F(RegistryKeyTest, DeleteTreeOfTheEmptyNameDeletesNothing) {
    registry_.CreateKey(Path + L"\\a");
    EXPECT_FALSE(key_.DeleteTree(L""));
    EXPECT_TRUE(registry_.KeyExists(Path + L"\\a"));
}

TEST_F(RegistryKeyTest, DeleteTreeDeletesAllBelow) {
    registry_.SetDword(Path + L"\\a\\b\\c", L"Value", 1);
    registry_.SetDword(Path + L"\\a\\d\\e", L"Value", 1);
    registry_.CreateKey(Path + L"\\other");
    EXPECT_TRUE(key_.DeleteTree(L"a"));
    EXPECT_EQ(registry_.Subkeys(Path), std::vector<std::wstring>{L"other"});
}

TEST_F(RegistryKeyTest, DeleteTreeOfAMissingKeyIsFalse) {
    EXPECT_FALSE(key_.DeleteTree(L"missing"));
}

}  // namespace
