// The templates of the pages and dialogs as the resource holds them: every control with its class and text,
// in the order of Tab, large enough for its text.

#include "HostWindow.h"
#include "ResourceTable.h"

#include <gtest/gtest.h>

#include <vector>

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

    std::vector<HWND> Children() const {
        std::vector<HWND> children;
        for (HWND child = GetWindow(Handle, GW_CHILD); child != nullptr;
             child = GetWindow(child, GW_HWNDNEXT))
            children.push_back(child);
        return children;
    }

private:
    HostWindow host_;

public:
    HWND Handle;
};

DWORD StyleOf(HWND window) {
    return static_cast<DWORD>(GetWindowLongPtrW(window, GWL_STYLE));
}

std::wstring ClassOf(HWND window) {
    wchar_t name[64] = {};
    GetClassNameW(window, name, 64);
    return name;
}

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

TEST(Resources, EveryControlStandsInItsDialogWithClassTextAndStyle) {
    for (const DialogRow& row : Dialogs) {
        SCOPED_TRACE(row.id);
        const BareDialog dialog(row.id);
        ASSERT_NE(dialog.Handle, nullptr);
        const std::vector<HWND> children = dialog.Children();
        ASSERT_EQ(children.size(), row.controls.size());
        for (size_t i = 0; i < children.size(); i++) {
            const ControlRow& control = row.controls[i];
            SCOPED_TRACE(control.id);
            EXPECT_EQ(GetDlgCtrlID(children[i]), control.id);
            EXPECT_EQ(GetDlgItem(dialog.Handle, control.id), children[i]);
            EXPECT_EQ(ClassOf(children[i]), control.className);
            if (control.text != nullptr) {
                EXPECT_EQ(WinLib::GetWindowText(children[i]), control.text);
            }
            EXPECT_EQ(StyleOf(children[i]) & control.style, control.style);
        }
    }
}

TEST(Resources, TypesOfButtonsAndTextsAreExact) {
    for (const DialogRow& row : Dialogs) {
        const BareDialog dialog(row.id);
        for (const ControlRow& control : row.controls) {
            SCOPED_TRACE(testing::Message() << row.id << " " << control.id);
            const DWORD style = StyleOf(GetDlgItem(dialog.Handle, control.id));
            if (control.className == std::wstring(L"Button") && control.style != BS_ICON) {
                EXPECT_EQ(style & BS_TYPEMASK, control.style);
            }
            if (control.className == std::wstring(L"Static")) {
                EXPECT_EQ(style & SS_TYPEMASK, control.style);
            }
        }
    }
}

TEST(Resources, DialogsHaveTheirTitleAndSize) {
    for (const DialogRow& row : Dialogs) {
        SCOPED_TRACE(row.id);
        const BareDialog dialog(row.id);
        EXPECT_EQ(WinLib::GetWindowText(dialog.Handle), row.title);
        if (row.width == 0)
            continue;
        RECT size = {0, 0, row.width, row.height};
        MapDialogRect(dialog.Handle, &size);
        EXPECT_EQ(ClientSize(dialog.Handle).cx, size.right);
        EXPECT_EQ(ClientSize(dialog.Handle).cy, size.bottom);
    }
}

TEST(Resources, PagesAreHiddenChildrenOfOneSizeThatTabGoesThrough) {
    const BareDialog first(IDD_MANAGE);
    for (const DialogRow& row : Dialogs) {
        if (row.width != 0)
            continue;
        SCOPED_TRACE(row.id);
        const BareDialog page(row.id);
        EXPECT_EQ(ClientSize(page.Handle).cx, ClientSize(first.Handle).cx);
        EXPECT_EQ(ClientSize(page.Handle).cy, ClientSize(first.Handle).cy);
        EXPECT_EQ(StyleOf(page.Handle) & (WS_CHILD | WS_VISIBLE | WS_CAPTION), static_cast<DWORD>(WS_CHILD));
        EXPECT_NE(GetWindowLongPtrW(page.Handle, GWL_EXSTYLE) & WS_EX_CONTROLPARENT, 0);
    }
}

TEST(Resources, EveryTextFitsItsControl) {
    for (const DialogRow& row : Dialogs) {
        const BareDialog dialog(row.id);
        for (const ControlRow& control : row.controls) {
            SCOPED_TRACE(testing::Message() << row.id << " " << control.id);
            const HWND window = GetDlgItem(dialog.Handle, control.id);
            const SIZE room = ClientSize(window);
            const bool isText = control.className == std::wstring(L"Static") &&
                                (control.style == SS_LEFT || control.style == SS_CENTER);
            const bool isButton = control.className == std::wstring(L"Button") && control.style != BS_ICON &&
                                  control.style != BS_GROUPBOX;
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
TEST(Resources, TheLastInstructionHasRoomForWiderLetters) {
    const BareDialog dialog(IDD_MANAGE);
    const HWND window = GetDlgItem(dialog.Handle, IDC_MANAGE_REARRANGE);
    const SIZE room = ClientSize(window);
    EXPECT_LE(TextSize(window, WinLib::GetWindowText(window), room.cx * 9 / 10).cy, room.cy);
}

TEST(Resources, NobodyReachesTheSwitchForTheSettingsFolder) {
    const BareDialog dialog(IDD_OPTIONS);
    const HWND control = GetDlgItem(dialog.Handle, 1011);
    EXPECT_FALSE(IsWindowVisible(control));
    EXPECT_EQ(StyleOf(control) & (WS_DISABLED | WS_VISIBLE), static_cast<DWORD>(WS_DISABLED));
}

TEST(Resources, TheFilterCaptionIsHidden) {
    const BareDialog dialog(IDD_FILTER);
    EXPECT_EQ(StyleOf(GetDlgItem(dialog.Handle, 1066)) & WS_VISIBLE, 0U);
}

TEST(Resources, AboutShowsTheProgramsIcon) {
    const BareDialog dialog(IDD_ABOUT);
    EXPECT_NE(SendMessageW(GetDlgItem(dialog.Handle, 1021), STM_GETICON, 0, 0), 0);
}

}  // namespace
