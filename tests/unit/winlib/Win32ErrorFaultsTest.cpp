#include <gtest/gtest.h>

#include <optional>

#include "support/native/ScarceMemory.h"
#include "winlib/Win32Error.h"
#include "winlib/Windows.h"

namespace {

// The text that every error begins with is the one allocation that succeeds.
TEST(Win32ErrorFaults, KeepsItsFirstTextIfThereIsNoMemoryForTheSystems) {
    for (const DWORD code : {DWORD{ERROR_ACCESS_DENIED}, DWORD{0x2BADC0DE}}) {
        SetLastError(code);
        std::optional<WinLib::Win32Error> error;
        {
            const ScarceMemory memory(1, 1);
            error.emplace();
        }
        EXPECT_TRUE(ScarceMemory::HasStruck()) << code;
        EXPECT_EQ(error->Message, L"An unidentified error has occurred.") << code;
        EXPECT_EQ(error->Code, code);
        EXPECT_EQ(GetLastError(), 0u) << code;
    }
}

}  // namespace
