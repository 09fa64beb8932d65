// The templates of the pages and dialogs as the resource holds them: every control with its class and text,
// in the order of Tab, large enough for its text.

#include "OpenPage.h"

#include <gtest/gtest.h>

#include <vector>

#include "resources/resource.h"
#include "support/Text.h"

namespace {

struct ControlRow {
    int id;
    const wchar_t* className;
    const wchar_t* text;
    DWORD style;  // the bits that make the control what it is
};

struct DialogRow {
    int id;
    const wchar_t* title;
    int width;  // in dialog units; 0 for the pages, which only share one size
    int height;
    std::vector<ControlRow> controls;
};

constexpr DWORD Group = BS_GROUPBOX;
constexpr DWORD Check = BS_AUTOCHECKBOX;
constexpr DWORD Radio = BS_AUTORADIOBUTTON;

const DialogRow Dialogs[] = {
    {IDD_MANAGE,
     L"",
     0,
     0,
     {{1091, L"Button", L"Instructions", Group},
      {1093, L"Static",
       L"Create a New Preset:\n- Right-click the tree-view and select \"New\"\n- Right-click the tree-view "
       L"and "
       L"select \"New from Template\"\n- Select \"File -> New\" or \"File -> New from Template\"",
       SS_LEFT},
      {1092, L"Static",
       L"Duplicate or Remove:\n- Right-click the tree view and select \"Duplicate\" or \"Remove\"\n- Select "
       L"\"Edit -> Duplicate\" or \"Edit -> Remove\"",
       SS_LEFT},
      {1094, L"Static", L"Rearrange Context Menu:\n- Rearrange order with drag and drop in the tree view",
       SS_LEFT}}},
    {IDD_FORMAT,
     L"",
     0,
     0,
     {{1090, L"Button", L"Format", Group},
      {1095, L"Static", L"Choose an output format:", SS_LEFT},
      {1045, L"Button", L"Plain text listing (*.txt)", Radio},
      {1044, L"Button", L"HTML-page listing (*.html)", Radio},
      {1074, L"Button", L"Support international characters (UTF-8 file output)", Check}}},
    {IDD_DISPLAY,
     L"",
     0,
     0,
     {{1096, L"Button", L"Display", Group},
      {1060, L"Button", L"Perform listing of subfolders", Check},
      {1013, L"Button", L"List hidden folders and files", Check},
      {1012, L"Button", L"Group items beneath their parent folder", Check},
      {1097, L"Static", L"Amount of indent for each path depth:", SS_LEFT},
      {1059, L"Static", L"0", SS_LEFT},
      {1057, L"msctls_trackbar32", L"", TBS_HORZ},
      {1075, L"Static", L"Size representation:", SS_LEFT},
      {1076, L"ComboBox", L"", CBS_DROPDOWNLIST},
      {1010, L"Button", L"Display statistics on top of the list", Check}}},
    {IDD_FILTER,
     L"",
     0,
     0,
     {{1098, L"Button", L"Filter", Group},
      {1067, L"Static", L"Select filetypes to list:", SS_LEFT},
      {1011, L"ComboBox", L"", CBS_DROPDOWNLIST},
      {1066, L"Static", L"Filter:", SS_LEFT},
      {1012, L"Edit", L"", ES_LEFT},
      {1099, L"Static", L"Multiple patterns should be separated by ':'.", SS_LEFT},
      {-1, L"Static", L"Excluded folders:", SS_LEFT},
      {1112, L"SysListView32", L"", LVS_REPORT | LVS_NOCOLUMNHEADER | LVS_SINGLESEL | LVS_EDITLABELS},
      {1032, L"Button", L"Add...", BS_PUSHBUTTON},
      {1033, L"Button", L"Remove", BS_PUSHBUTTON}}},
    {IDD_COLUMNS,
     L"",
     0,
     0,
     {{1103, L"Button", L"Columns", Group},
      {1106, L"Static", L"Check and arrange the columns to show in the list:", SS_LEFT},
      {1065, L"SysTreeView32", L"", TVS_HASBUTTONS},
      {1061, L"Button", L"", BS_ICON},
      {1062, L"Button", L"", BS_ICON},
      {1073, L"Button", L"Display column headers on top of list", Check}}},
    {IDD_SORTING,
     L"",
     0,
     0,
     {{1104, L"Button", L"Sorting", Group},
      {1105, L"Static", L"Sorting critera by priority, up arrow is ascending:", SS_LEFT},
      {1070, L"SysTreeView32", L"", TVS_HASBUTTONS},
      {1061, L"Button", L"", BS_ICON},
      {1062, L"Button", L"", BS_ICON},
      {1047, L"Button", L"Enable natural sorting of digits as numbers", Check}}},
    {IDD_SAVING,
     L"",
     0,
     0,
     {{1101, L"Button", L"Saving", Group},
      {1026, L"Button", L"Save list in a temporary folder", Radio},
      {1027, L"Button", L"Save to the folder from which the list was created", Radio},
      {1029, L"Button", L"Save list in a custom defined folder...", Radio},
      {1030, L"Edit", L"", ES_AUTOHSCROLL},
      {1031, L"Button", L"Browse...", BS_PUSHBUTTON},
      {1038, L"Button", L"Overwrite older lists with the same filename", Check}}},
    {IDD_OPENING,
     L"",
     0,
     0,
     {{1102, L"Button", L"Opening", Group},
      {1027, L"Button", L"Open list with its associated program", Radio},
      {1028, L"Button", L"Do not open the list", Radio},
      {1029, L"Button", L"Open list with a custom defined program...", Radio},
      {1030, L"Edit", L"", ES_AUTOHSCROLL},
      {1031, L"Button", L"Browse...", BS_PUSHBUTTON}}},
    {IDD_OPTIONS,
     L"Options",
     243,
     89,
     {{1040, L"Button", L"Ask for confirmation on program exit", Check},
      {1010, L"Button", L"Integrate into folder context menus", Check},
      {1011, L"Button", L"Store application settings in %APPDATA% folder", Check},
      {1122, L"Static", L"", SS_ETCHEDHORZ},
      {1121, L"Button", L"Close", BS_PUSHBUTTON}}},
    {IDD_ABOUT,
     L"About",
     219,
     149,
     {{1021, L"Static", nullptr, SS_ICON},
      {1033, L"Static", L"Tamblewick 4.0.1", SS_CENTER},
      {1088, L"Static", L"Programmed by Ostrel Vane", SS_CENTER},
      {1086, L"Static", L"E-mail:", SS_CENTER},
      {1034, L"Static", L"ostrel.vane@tamblewick.example", SS_CENTER},
      {1085, L"Static", L"Copyright \x00A9 2026 Ostrel Vane", SS_CENTER},
      {1087, L"Static", L"Homepage:", SS_CENTER},
      {1035, L"Static", L"https://www.tamblewick.example/", SS_CENTER},
      {-1, L"Static", L"", SS_ETCHEDHORZ},
      {1032, L"Button", L"Close", BS_PUSHBUTTON}}},
};

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
