// This program has no dialogs among its resources, so that the main window cannot be made.
#include "app/AppMain.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "resources/resource.h"
#include "support/ui/DismissModal.h"
#include "support/ui/ReplacedImport.h"
#include "winlib/Application.h"
#include "winlib/Win32Error.h"

#include <commctrl.h>

namespace {

std::wstring MessageOfAMissingDialog() {
    EXPECT_EQ(CreateDialogParamW(nullptr, MAKEINTRESOURCEW(IDD_MAIN), nullptr, nullptr, 0), nullptr);
    return WinLib::Win32Error().Message;
}

// The text of a message box comes without the line end after it.
void TrimEnd(std::wstring& text) {
    text.erase(text.find_last_not_of(L"\r\n ") + 1);
}

TEST(AppMain, ReportsAnExceptionAndEndsWithMinusOne) {
    std::wstring expected = MessageOfAMissingDialog();
    // What the first call has found on the command line counts for the whole process.
    for (const wchar_t* line : {L" ", L"argument"}) {
        WinLib::Application::Install(
            std::make_unique<WinLib::Application>(GetModuleHandleW(nullptr), line, SW_SHOWNORMAL));
        Ui::DismissModal user(IDOK);
        EXPECT_EQ(AppMain(), -1);
        ASSERT_EQ(user.Seen().size(), 1u);
        Ui::SeenDialog box = user.Seen()[0];
        EXPECT_EQ(box.caption, L"Error");
        EXPECT_EQ(box.owner, nullptr);
        TrimEnd(box.text);
        TrimEnd(expected);
        EXPECT_EQ(box.text, expected);
        EXPECT_TRUE(WinLib::Application::Current()->Dialogs.empty());
    }
}

// Refuses one class of controls and notes all it was asked for.
DWORD refusedClasses = 0;
std::vector<DWORD> askedClasses;

BOOL WINAPI RefuseOneClass(const INITCOMMONCONTROLSEX* request) {
    askedClasses.push_back(request->dwICC);
    return request->dwSize == sizeof(*request) && request->dwICC != refusedClasses;
}

TEST(AppMain, ReportsWhichCallFailedWhenControlsAreMissing) {
    constexpr DWORD Needed[] = {ICC_TREEVIEW_CLASSES, ICC_LISTVIEW_CLASSES, ICC_PROGRESS_CLASS,
                                ICC_BAR_CLASSES};
    const Ui::ReplacedImport refusing("InitCommonControlsEx", RefuseOneClass);
    WinLib::Application::Install(
        std::make_unique<WinLib::Application>(GetModuleHandleW(nullptr), L"", SW_SHOWNORMAL));
    for (const DWORD classes : Needed) {
        refusedClasses = classes;
        askedClasses.clear();
        Ui::DismissModal user(IDOK);
        EXPECT_EQ(AppMain(), -1);
        ASSERT_EQ(user.Seen().size(), 1u);
        EXPECT_EQ(user.Seen()[0].text, L"InitCommonControlsEx failed.");
        EXPECT_EQ(askedClasses.back(), classes);
    }
}

}  // namespace
