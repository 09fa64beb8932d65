// The tests' own support.
#include <gtest/gtest.h>

#include "support/TempFolder.h"
#include "support/TestRegistry.h"
#include "support/Text.h"
#include "winlib/Windows.h"

using TestSupport::TempFolder;
using TestSupport::TestRegistry;
using TestSupport::Utf8;
using TestSupport::Wide;

TEST(TempFolder, HasACanonicalPathOnADrive) {
    const TempFolder folder;
    const std::wstring& path = folder.Path();
    EXPECT_EQ(path.substr(1, 2), L":\\") << Utf8(path);
    EXPECT_EQ(path.find(L"\\\\"), std::wstring::npos) << Utf8(path);
    EXPECT_NE(path.back(), L'\\') << Utf8(path);
    EXPECT_EQ(folder.Path(L"a\\b"), path + L"\\a\\b");
}

TEST(TempFolder, EachIsItsOwnAndGoesWithItsObject) {
    std::wstring path;
    {
        const TempFolder first;
        const TempFolder second;
        EXPECT_NE(first.Path(), second.Path());
        path = first.Path();
        first.AddFile(L"deep\\er\\file", 5, FILE_ATTRIBUTE_READONLY);
        EXPECT_FALSE(second.Exists(L"deep"));
        EXPECT_NE(GetFileAttributesW(path.c_str()), INVALID_FILE_ATTRIBUTES);
    }
    EXPECT_EQ(GetFileAttributesW(path.c_str()), INVALID_FILE_ATTRIBUTES);
}

TEST(TempFolder, MakesFoldersAndFiles) {
    const TempFolder folder;
    folder.AddFolder(L"hidden", FILE_ATTRIBUTE_HIDDEN);
    folder.AddFile(L"a\\b\\text", std::string("one\r\ntwo\0three", 14));
    folder.AddFile(L"system", 0, FILE_ATTRIBUTE_SYSTEM);
    EXPECT_EQ(GetFileAttributesW(folder.Path(L"hidden").c_str()) &
                  (FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_DIRECTORY),
              static_cast<DWORD>(FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_DIRECTORY));
    EXPECT_NE(GetFileAttributesW(folder.Path(L"system").c_str()) & FILE_ATTRIBUTE_SYSTEM, 0u);
    EXPECT_EQ(folder.Read(L"a\\b\\text"), std::string("one\r\ntwo\0three", 14));
    EXPECT_TRUE(folder.Exists(L"a\\b"));
    EXPECT_FALSE(folder.Exists(L"a\\c"));
    EXPECT_EQ(folder.Read(L"nothing"), std::nullopt);
    EXPECT_EQ(TestSupport::ReadBytes(folder.Path(L"nothing")), std::nullopt);
}

TEST(TempFolder, SettingTimesLeavesTheAttributes) {
    constexpr FILETIME Time = {0, 0x01D0'0000};
    constexpr DWORD Attributes = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
    const TempFolder folder;
    folder.AddFile(L"file", 0, Attributes);
    folder.AddFolder(L"sub", FILE_ATTRIBUTE_HIDDEN);
    folder.SetTimes(L"file", Time, Time, Time);
    folder.SetTimes(L"sub", Time, Time, Time);
    EXPECT_EQ(GetFileAttributesW(folder.Path(L"file").c_str()) & Attributes, Attributes);
    EXPECT_NE(GetFileAttributesW(folder.Path(L"sub").c_str()) & FILE_ATTRIBUTE_HIDDEN, 0u);
}

TEST(TempFolder, ASizeIsFilledWithZeros) {
    const TempFolder folder;
    folder.AddFile(L"zeros", 3);
    EXPECT_EQ(folder.Read(L"zeros"), std::string(3, '\0'));
}

TEST(TestRegistry, BeginsAndEndsWithoutTheProductsKey) {
    {
        const TestRegistry registry;
        registry.SetDword(L"Software\\Tamblewick\\a\\b", L"Value", 7);
        EXPECT_TRUE(registry.KeyExists(L"Software\\Tamblewick"));
        const TestRegistry again;
        EXPECT_FALSE(registry.KeyExists(L"Software\\Tamblewick"));
        registry.CreateKey(L"Software\\Tamblewick");
    }
    HKEY key = nullptr;
    EXPECT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, L"Software\\Tamblewick", 0, KEY_READ, &key),
              ERROR_FILE_NOT_FOUND);
}

TEST(TestRegistry, ValuesAreExactInTypeAndSize) {
    EXPECT_EQ(TestSupport::DwordValue(0x01020304).data, "\x04\x03\x02\x01");
    EXPECT_EQ(TestSupport::StringValue(L"ab").data.size(), 3 * sizeof(wchar_t));
    EXPECT_EQ(TestSupport::StringListValue({}).data.size(), sizeof(wchar_t));
    EXPECT_EQ(TestSupport::StringListValue({L"a", L"bc"}).data.size(), 6 * sizeof(wchar_t));
    EXPECT_EQ(TestSupport::TextData(L"ab").size(), 2 * sizeof(wchar_t));
    EXPECT_NE(TestSupport::StringValue(L"a"),
              (TestSupport::RegistryValue{REG_MULTI_SZ, TestSupport::StringValue(L"a").data}));
}

TEST(TestRegistry, ReturnsWhatWasSet) {
    const TestRegistry registry;
    constexpr wchar_t Key[] = L"Software\\Tamblewick\\Sub";
    registry.SetDword(Key, L"Number", 7);
    registry.SetString(Key, L"Text", L"abc");
    registry.SetStringList(Key, L"List", {L"a", L"b"});
    registry.SetRaw(Key, L"Raw", REG_SZ, TestSupport::TextData(L"abc"));
    EXPECT_EQ(registry.Get(Key, L"Number"), TestSupport::DwordValue(7));
    EXPECT_EQ(registry.Get(Key, L"Text"), TestSupport::StringValue(L"abc"));
    EXPECT_EQ(registry.Get(Key, L"List"), TestSupport::StringListValue({L"a", L"b"}));
    EXPECT_EQ(registry.Get(Key, L"Raw"), (TestSupport::RegistryValue{REG_SZ, TestSupport::TextData(L"abc")}));
    EXPECT_EQ(registry.Get(Key, L"Nothing"), std::nullopt);
    EXPECT_EQ(registry.Get(L"Software\\Tamblewick\\Nothing", L"Number"), std::nullopt);
    EXPECT_EQ(registry.ValueNames(Key), (std::vector<std::wstring>{L"List", L"Number", L"Raw", L"Text"}));
    EXPECT_EQ(registry.Subkeys(L"Software\\Tamblewick"), std::vector<std::wstring>{L"Sub"});
}

TEST(Text, ShowsUnitsAsUtf8) {
    EXPECT_EQ(Utf8(L"a\x00E4\x4E2D"), "a\xC3\xA4\xE4\xB8\xAD");
    EXPECT_EQ(Utf8(std::wstring{L'x', wchar_t(0xD83D), wchar_t(0xDE00)}), "x\xF0\x9F\x98\x80");
    EXPECT_EQ(Utf8(std::wstring{wchar_t(0xD83D), L'x', wchar_t(0xDE00)}), "\\uD83Dx\\uDE00");
}

TEST(Text, TakesUnitsFromUtf8) {
    EXPECT_EQ(Wide("a\xC3\xA4\xF0\x9F\x98\x80"),
              (std::wstring{L'a', wchar_t(0xE4), wchar_t(0xD83D), wchar_t(0xDE00)}));
    EXPECT_EQ(Wide(""), L"");
}
