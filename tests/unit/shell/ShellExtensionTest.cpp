#include "shell/ShellExtension.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "RegisteredKeys.h"
#include "support/Text.h"

using namespace TestSupport;

namespace {

// The other letter case of every ASCII letter.
std::wstring SwapCase(std::wstring text) {
    std::ranges::transform(text, text.begin(), [](wchar_t c) {
        const bool letter = (c >= L'a' && c <= L'z') || (c >= L'A' && c <= L'Z');
        return letter ? static_cast<wchar_t>(c ^ 0x20) : c;
    });
    return text;
}

class ShellExtensionTest : public testing::Test {
protected:
    const RegisteredKeys keys_;
    const ShellExtension extension_{RegisteredKeys::Name, RegisteredKeys::ClassId};
};

TEST(ModulePath, IsTheProgramsPathUpToItsLastDot) {
    const std::pair<std::wstring, std::wstring> rows[] = {
        {L"C:\\Tools\\tamblewick.exe", L"C:\\Tools\\tamblewick.dll"},
        {L"C:\\a.b\\prog.x.exe", L"C:\\a.b\\prog.x.dll"},
        {L"C:\\a.b\\prog", L"C:\\a.dll"},
        {L"C:\\Tools\\prog", L"C:\\Tools\\prog.dll"},
        {L"C:\\Tools\\prog.", L"C:\\Tools\\prog.dll"},
    };
    for (const auto& [program, module] : rows)
        EXPECT_EQ(ModulePathOf(program), module) << Utf8(program);
}

TEST_F(ShellExtensionTest, TheModuleIsBesideTheProgram) {
    wchar_t path[4096] = {};
    ASSERT_NE(GetModuleFileNameW(nullptr, path, 4096), 0u);
    wchar_t longPath[4096] = {};
    ASSERT_NE(GetLongPathNameW(path, longPath, 4096), 0u);
    const std::wstring program = longPath;
    ASSERT_EQ(program.substr(program.length() - 4), L".exe");
    EXPECT_EQ(extension_.ModulePath, program.substr(0, program.length() - 4) + L".dll");
    EXPECT_EQ(extension_.Name, RegisteredKeys::Name);
    EXPECT_EQ(extension_.ClassId, RegisteredKeys::ClassId);
}

TEST_F(ShellExtensionTest, WithoutKeysItIsNotRegistered) {
    EXPECT_FALSE(extension_.IsRegistered());
}

TEST_F(ShellExtensionTest, WithAllThreeKeysItIsRegistered) {
    keys_.Register(extension_.ModulePath);
    EXPECT_TRUE(extension_.IsRegistered());
}

TEST_F(ShellExtensionTest, EachOfTheThreeKeysIsNeeded) {
    for (const std::wstring& key : {keys_.Directory, keys_.Drive, keys_.Server}) {
        keys_.Register(extension_.ModulePath);
        ASSERT_TRUE(extension_.IsRegistered());
        keys_.Delete(key);
        EXPECT_FALSE(extension_.IsRegistered()) << Utf8(key);
    }
}

TEST_F(ShellExtensionTest, EachOfTheThreeValuesMustBeOurs) {
    for (const std::wstring& key : {keys_.Directory, keys_.Drive, keys_.Server}) {
        keys_.Register(extension_.ModulePath);
        keys_.Set(key, L"{00000000-0000-0000-0000-000000000000}");
        EXPECT_FALSE(extension_.IsRegistered()) << Utf8(key);
        keys_.Set(key, L"");
        EXPECT_FALSE(extension_.IsRegistered()) << Utf8(key);
    }
}

TEST_F(ShellExtensionTest, AHandlerInAnotherFolderIsNotOurs) {
    keys_.Register(L"C:\\Elsewhere\\tamblewick.dll");
    EXPECT_FALSE(extension_.IsRegistered());
}

TEST_F(ShellExtensionTest, LetterCaseDoesNotCount) {
    keys_.Set(keys_.Directory, SwapCase(RegisteredKeys::ClassId));
    keys_.Set(keys_.Drive, SwapCase(RegisteredKeys::ClassId));
    keys_.Set(keys_.Server, SwapCase(extension_.ModulePath));
    EXPECT_TRUE(extension_.IsRegistered());
}

TEST_F(ShellExtensionTest, AValueOfAnotherTypeIsAbsent) {
    const std::pair<std::wstring, std::wstring> values[] = {
        {keys_.Directory, RegisteredKeys::ClassId},
        {keys_.Drive, RegisteredKeys::ClassId},
        {keys_.Server, extension_.ModulePath},
    };
    for (const auto& [key, text] : values) {
        for (const DWORD type : std::initializer_list<DWORD>{REG_EXPAND_SZ, REG_MULTI_SZ, REG_BINARY}) {
            keys_.Register(extension_.ModulePath);
            keys_.Set(key, text, type);
            EXPECT_FALSE(extension_.IsRegistered()) << Utf8(key) << " of type " << type;
        }
    }
}

// There is no module beside this program, so regsvr32 starts and fails.
TEST_F(ShellExtensionTest, ARegistrationThatFailsStillWasStarted) {
    EXPECT_TRUE(extension_.Register());
    EXPECT_FALSE(extension_.IsRegistered());
    EXPECT_TRUE(extension_.Unregister());
    EXPECT_FALSE(extension_.IsRegistered());
}

}  // namespace
