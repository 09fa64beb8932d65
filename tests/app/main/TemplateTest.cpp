// The dialog resource of the main window as it is drawn, in dialog units.

#include <gtest/gtest.h>

#include "resources/resource.h"
#include "support/ui/DialogTemplate.h"

#include <commctrl.h>

namespace {

TEST(Template, Frame) {
    const Ui::DialogTemplate dialog = Ui::ReadDialogTemplate(9);
    EXPECT_EQ(dialog.caption, L"Tamblewick 4.0.1");
    EXPECT_EQ(dialog.cx, 345);
    EXPECT_EQ(dialog.cy, 201);
    EXPECT_EQ(dialog.exStyle, static_cast<DWORD>(WS_EX_CONTROLPARENT));
    constexpr DWORD Needed =
        WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_MINIMIZEBOX | DS_CENTER | DS_SETFONT | DS_FIXEDSYS;
    EXPECT_EQ(dialog.style & Needed, Needed);
    EXPECT_EQ(dialog.style & (WS_CHILD | WS_MAXIMIZEBOX | WS_VISIBLE), 0u);
    EXPECT_EQ(dialog.pointSize, 8);
    EXPECT_EQ(dialog.typeface, L"MS Shell Dlg");
}

TEST(Template, ControlsInTabOrder) {
    constexpr DWORD Child = WS_CHILD | WS_VISIBLE;
    const Ui::TemplateItem expected[] = {
        {1002, L"BUTTON", L"Create List...", 266, 174, 70, 16, Child | WS_TABSTOP | BS_DEFPUSHBUTTON, 0},
        {1005, L"BUTTON", L"Close", 120, 174, 70, 16, Child | WS_TABSTOP | BS_PUSHBUTTON, 0},
        {1020, L"SysTreeView32", L"", 6, 6, 108, 184,
         Child | WS_BORDER | WS_TABSTOP | TVS_HASLINES | TVS_LINESATROOT | TVS_SHOWSELALWAYS |
             TVS_TRACKSELECT,
         0},
        {-1, L"STATIC", L"", 146, 40, 6, 88, Child | SS_OWNERDRAW, 0},
        {1110, L"msctls_progress32", L"", 204, 174, 49, 12, WS_CHILD | WS_BORDER | PBS_MARQUEE, 0},
    };
    const Ui::DialogTemplate dialog = Ui::ReadDialogTemplate(9);
    ASSERT_EQ(dialog.items.size(), std::size(expected));
    for (size_t i = 0; i < std::size(expected); i++) {
        const Ui::TemplateItem& item = dialog.items[i];
        EXPECT_EQ(item.id, expected[i].id);
        // The resource compiler writes the names of classes in capitals.
        EXPECT_EQ(_wcsicmp(item.className.c_str(), expected[i].className.c_str()), 0) << item.id;
        EXPECT_EQ(item.text, expected[i].text) << item.id;
        EXPECT_EQ(item.x, expected[i].x) << item.id;
        EXPECT_EQ(item.y, expected[i].y) << item.id;
        EXPECT_EQ(item.cx, expected[i].cx) << item.id;
        EXPECT_EQ(item.cy, expected[i].cy) << item.id;
        EXPECT_EQ(item.style, expected[i].style) << item.id;
        EXPECT_EQ(item.exStyle, expected[i].exStyle) << item.id;
    }
}

}  // namespace
