#include "winlib/Win32Error.h"

#include <gtest/gtest.h>

#include <type_traits>

#include "winlib/Windows.h"

namespace {

static_assert(!std::is_polymorphic_v<WinLib::Exception>);
static_assert(std::is_base_of_v<WinLib::Exception, WinLib::Win32Error>);

TEST(Win32Error, TakesTheCodeAndTheSystemsTextWithItsLineEnd) {
    SetLastError(ERROR_FILE_NOT_FOUND);
    const WinLib::Win32Error error;
    EXPECT_EQ(error.Code, 2u);
    ASSERT_GT(error.Message.length(), 2u);
    EXPECT_NE(error.Message, L"An unidentified Windows error has occurred.");
    EXPECT_EQ(error.Message.substr(error.Message.length() - 2), L"\r\n");
}

TEST(Win32Error, TellsThatTheSystemHasNoText) {
    SetLastError(0x2BADC0DE);
    const WinLib::Win32Error error;
    EXPECT_EQ(error.Code, 0x2BADC0DEu);
    EXPECT_EQ(error.Message, L"An unidentified Windows error has occurred.");
}

TEST(Win32Error, ClearsTheLastError) {
    for (const DWORD code : {DWORD{ERROR_ACCESS_DENIED}, DWORD{0x2BADC0DE}}) {
        SetLastError(code);
        const WinLib::Win32Error error;
        EXPECT_EQ(GetLastError(), 0u) << code;
    }
}

TEST(Win32Error, IsCaughtAsAnExceptionButNotAsAStandardOne) {
    try {
        SetLastError(ERROR_ACCESS_DENIED);
        throw WinLib::Win32Error();
    } catch (const std::exception&) {
        FAIL() << "caught as std::exception";
    } catch (const WinLib::Exception& error) {
        EXPECT_FALSE(error.Message.empty());
    }
}

TEST(Exception, KeepsItsText) {
    try {
        throw WinLib::Exception(L"InitCommonControlsEx failed.");
    } catch (const WinLib::Exception& error) {
        EXPECT_EQ(error.Message, L"InitCommonControlsEx failed.");
    }
}

}  // namespace
