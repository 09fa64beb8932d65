#include "winlib/WindowText.h"

#include <gtest/gtest.h>

#include "TestWindows.h"

namespace {

TEST(WindowText, IsTheWholeTextOfTheWindow) {
    const HWND window = TestWindows::MakeWindow();
    const std::wstring texts[] = {L"", L"a", L"C:\\Lists\\\x00E4\xD83D\xDE00", std::wstring(5000, L'x')};
    for (const std::wstring& text : texts) {
        SetWindowTextW(window, text.c_str());
        EXPECT_EQ(WinLib::GetWindowText(window), text);
    }
    DestroyWindow(window);
}

TEST(WindowText, OfNoWindowIsEmpty) {
    EXPECT_EQ(WinLib::GetWindowText(nullptr), L"");
}

}  // namespace
