// The edit box of a label that keeps Enter and Esc for itself.

#include "winlib/controls/EditLabelCtrl.h"

#include <gtest/gtest.h>

#include "support/ui/HostWindow.h"
#include "winlib/WindowText.h"

namespace {

TEST(EditLabelCtrl, RequestsAllKeysWhileItIsAttached) {
    const HostWindow host;
    const HWND edit = host.Add(L"Edit", L"", 0, {0, 0, 100, 20});
    const LRESULT before = SendMessageW(edit, WM_GETDLGCODE, 0, 0);
    EXPECT_NE(before, DLGC_WANTALLKEYS);
    WinLib::EditLabelCtrl control;
    WinLib::Attach(control, edit);
    EXPECT_EQ(SendMessageW(edit, WM_GETDLGCODE, 0, 0), DLGC_WANTALLKEYS);
    WinLib::Detach(control);
    EXPECT_EQ(SendMessageW(edit, WM_GETDLGCODE, 0, 0), before);
}

TEST(EditLabelCtrl, LeavesTheRestToTheEditBox) {
    const HostWindow host;
    const HWND edit = host.Add(L"Edit", L"old", 0, {0, 0, 100, 20});
    WinLib::EditLabelCtrl control;
    WinLib::Attach(control, edit);
    SendMessageW(edit, EM_SETSEL, 3, 3);
    SendMessageW(edit, WM_CHAR, L'x', 1);
    EXPECT_EQ(WinLib::GetWindowText(edit), L"oldx");
    WinLib::Detach(control);
}

}  // namespace
