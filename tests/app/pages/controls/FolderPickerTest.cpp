// The system's dialog for a folder.

#include "winlib/FolderPicker.h"

#include <gtest/gtest.h>

#include "FolderDialog.h"
#include "HostWindow.h"

using WinLib::PickFolder;

namespace {

TEST(FolderPicker, ReturnsTheStartFolderWhenTheUserAcceptsIt) {
    const HostWindow host;
    const std::wstring folder = QuietFolder();
    const AcceptFolder accept(L"drivers");
    EXPECT_EQ(PickFolder(host.Handle, L"Choose one", folder.c_str()), folder);
    ASSERT_EQ(accept.Seen().size(), 1U);
    EXPECT_NE(accept.Seen()[0].text.find(L"Choose one"), std::wstring::npos);
    EXPECT_EQ(accept.Seen()[0].owner, host.Handle);
}

TEST(FolderPicker, ReturnsNothingWhenTheUserCancels) {
    const HostWindow host;
    const Ui::DismissModal cancel(IDCANCEL);
    EXPECT_EQ(PickFolder(host.Handle, L"Choose one", QuietFolder().c_str()), std::nullopt);
    EXPECT_EQ(PickFolder(host.Handle, L"Choose one", nullptr), std::nullopt);
    EXPECT_EQ(cancel.Seen().size(), 2U);
}

TEST(FolderPicker, OffersNoButtonForANewFolder) {
    const HostWindow host;
    bool hasButton = true;
    const Ui::DismissModal look([&hasButton](HWND dialog) {
        hasButton = false;
        for (HWND child = GetWindow(dialog, GW_CHILD); child != nullptr;
             child = GetWindow(child, GW_HWNDNEXT)) {
            const int id = GetDlgCtrlID(child);
            wchar_t className[16] = {};
            GetClassNameW(child, className, 16);
            if (std::wstring(className) == L"Button" && id != IDOK && id != IDCANCEL &&
                IsWindowVisible(child))
                hasButton = true;
        }
        PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
    });
    PickFolder(host.Handle, L"Choose one", nullptr);
    EXPECT_FALSE(hasButton);
}

}  // namespace
