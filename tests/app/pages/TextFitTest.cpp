// Every control is drawn large enough for its text.

#include "support/ui/DialogTable.h"
#include "support/ui/HostWindow.h"

#include <gtest/gtest.h>

#include "resources/resource.h"
#include "support/Text.h"
#include "winlib/WindowText.h"

namespace {

INT_PTR CALLBACK NoProcedure(HWND, UINT, WPARAM, LPARAM) {
    return FALSE;
}

// The dialog as the resource draws it, with no controller.
class BareDialog {
public:
    explicit BareDialog(int id)
        : Handle(CreateDialogParamW(host_.Application.Instance, MAKEINTRESOURCEW(id), host_.Handle,
                                    NoProcedure, 0)) {}
    BareDialog(const BareDialog&) = delete;
    BareDialog& operator=(const BareDialog&) = delete;
    ~BareDialog() { DestroyWindow(Handle); }

private:
    HostWindow host_;

public:
    HWND Handle;
};

SIZE ClientSize(HWND window) {
    RECT client = {};
    GetClientRect(window, &client);
    return {client.right, client.bottom};
}

// The room that a text takes in the control's font, broken into lines at the given width.
SIZE TextSize(HWND control, const std::wstring& text, LONG width) {
    const HDC dc = GetDC(control);
    const HGDIOBJ old = SelectObject(dc, reinterpret_cast<HFONT>(SendMessageW(control, WM_GETFONT, 0, 0)));
    RECT room = {0, 0, width, 0};
    DrawTextW(dc, text.c_str(), -1, &room, DT_CALCRECT | DT_WORDBREAK | DT_NOPREFIX);
    SelectObject(dc, old);
    ReleaseDC(control, dc);
    return {room.right, room.bottom};
}

// What a button shows beside its text.
LONG ButtonExtra(DWORD style) {
    const DWORD type = style & BS_TYPEMASK;
    return type == BS_AUTOCHECKBOX || type == BS_AUTORADIOBUTTON ? GetSystemMetrics(SM_CXMENUCHECK) + 4 : 8;
}

TEST(TextFit, EveryTextFitsItsControl) {
    for (const DialogRow& row : Dialogs) {
        const BareDialog dialog(row.id);
        for (const ControlRow& control : row.controls) {
            SCOPED_TRACE(testing::Message() << row.id << " " << control.id);
            const HWND window = GetDlgItem(dialog.Handle, control.id);
            const SIZE room = ClientSize(window);
            const DWORD textType = control.style & SS_TYPEMASK;
            const bool isText = control.className == std::wstring(L"Static") &&
                                (textType == SS_LEFT || textType == SS_CENTER);
            const bool isButton = control.className == std::wstring(L"Button") &&
                                  !(control.style & BS_ICON) && (control.style & BS_TYPEMASK) != BS_GROUPBOX;
            if (!isText && !isButton)
                continue;
            const LONG width = room.cx - (isButton ? ButtonExtra(control.style) : 0);
            const SIZE size = TextSize(window, control.text, width);
            EXPECT_LE(size.cx, width) << TestSupport::Utf8(control.text);
            EXPECT_LE(size.cy, room.cy) << TestSupport::Utf8(control.text);
        }
    }
}

// In wider letters its line breaks into two.
TEST(TextFit, TheLastInstructionHasRoomForWiderLetters) {
    const BareDialog dialog(IDD_MANAGE);
    const HWND window = GetDlgItem(dialog.Handle, IDC_MANAGE_REARRANGE);
    const SIZE room = ClientSize(window);
    EXPECT_LE(TextSize(window, WinLib::GetWindowText(window), room.cx * 9 / 10).cy, room.cy);
}

}  // namespace
