// The system's dialog for a folder.

#include "winlib/FolderPicker.h"

#include <gtest/gtest.h>

#include <objbase.h>
#include <shlobj.h>

#include "FolderDialog.h"
#include "support/ui/HostWindow.h"
#include "support/ui/ReplacedImport.h"

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

// The system's part, played by the test: what it was asked, and what was done with its answer.
BROWSEINFOW asked;
std::wstring askedTitle;
BOOL hasPath = FALSE;
std::vector<void*> freed;
ITEMIDLIST place;

ITEMIDLIST* WINAPI ChoosePlace(BROWSEINFOW* browse) {
    asked = *browse;
    askedTitle = browse->lpszTitle;
    return &place;
}

BOOL WINAPI TellPath(const ITEMIDLIST* of, wchar_t* path) {
    EXPECT_EQ(of, &place);
    lstrcpyW(path, L"C:\\chosen");
    return hasPath;
}

void WINAPI RecordFree(void* memory) {
    freed.push_back(memory);
}

class FolderPickerCalls : public testing::Test {
protected:
    FolderPickerCalls() { freed.clear(); }

    const Ui::ReplacedImport browse{"SHBrowseForFolderW", ChoosePlace};
    const Ui::ReplacedImport path{"SHGetPathFromIDListW", TellPath};
    const Ui::ReplacedImport free{"CoTaskMemFree", RecordFree};
};

TEST_F(FolderPickerCalls, AskForAFolderOfTheFileSystem) {
    const HostWindow host;
    hasPath = TRUE;
    EXPECT_EQ(PickFolder(host.Handle, L"Choose one", nullptr), L"C:\\chosen");
    EXPECT_EQ(asked.hwndOwner, host.Handle);
    EXPECT_EQ(asked.pidlRoot, nullptr);
    EXPECT_EQ(askedTitle, L"Choose one");
    EXPECT_EQ(asked.ulFlags,
              static_cast<UINT>(BIF_RETURNONLYFSDIRS | BIF_NEWDIALOGSTYLE | BIF_NONEWFOLDERBUTTON));
    EXPECT_EQ(asked.lpfn, nullptr);
    EXPECT_EQ(freed, std::vector<void*>{&place});
}

TEST_F(FolderPickerCalls, FreeAPlaceThatHasNoPath) {
    hasPath = FALSE;
    EXPECT_EQ(PickFolder(nullptr, L"Choose one", nullptr), std::nullopt);
    EXPECT_EQ(freed, std::vector<void*>{&place});
}

// What the dialog has been sent.
WPARAM selectionIsPath = 0;
std::wstring selection;
int sent = 0;

LRESULT CALLBACK RecordSelection(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != BFFM_SETSELECTIONW)
        return DefWindowProcW(window, message, wParam, lParam);
    ++sent;
    selectionIsPath = wParam;
    selection = reinterpret_cast<const wchar_t*>(lParam);
    return 0;
}

TEST_F(FolderPickerCalls, SelectTheStartFolderWhenTheDialogIsReady) {
    const HostWindow host;
    hasPath = TRUE;
    PickFolder(host.Handle, L"Choose one", L"C:\\start");
    ASSERT_NE(asked.lpfn, nullptr);
    SetWindowLongPtrW(host.Handle, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(RecordSelection));
    EXPECT_EQ(asked.lpfn(host.Handle, BFFM_SELCHANGED, 0, asked.lParam), 0);
    EXPECT_EQ(sent, 0);
    EXPECT_EQ(asked.lpfn(host.Handle, BFFM_INITIALIZED, 0, asked.lParam), 0);
    EXPECT_EQ(sent, 1);
    EXPECT_EQ(selectionIsPath, static_cast<WPARAM>(TRUE));
    EXPECT_EQ(selection, L"C:\\start");
}

}  // namespace
