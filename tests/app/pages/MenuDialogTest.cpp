// What Options and About have from their base; how each of them closes is tested with the dialog itself.

#include "winlib/MenuDialog.h"

#include <gtest/gtest.h>

#include <vector>

#include "pages/AboutController.h"
#include "pages/OptionsController.h"
#include "resources/resource.h"

namespace {

struct DialogRow {
    const char* name;
    WinLib::Dialog::MenuDialog& dialog;
    std::vector<WORD> unknownControls;
    WORD closeButton;
};

TEST(MenuDialog, UnknownCommandsAreNotHandled) {
    MainSettings settings;
    AboutController about;
    OptionsController options(&settings);
    const DialogRow rows[] = {
        {"About", about, {IDC_ABOUT_TITLE}, IDC_ABOUT_CLOSE},
        {"Options", options, {IDC_OPTIONS_APPDATA, 4711}, IDC_OPTIONS_CLOSE},
    };
    for (const DialogRow& row : rows) {
        SCOPED_TRACE(row.name);
        for (const WORD id : row.unknownControls)
            EXPECT_FALSE(row.dialog.OnControlCommand(id, nullptr, BN_CLICKED)) << id;
        EXPECT_FALSE(row.dialog.OnMenuCommand(row.closeButton));
        EXPECT_FALSE(row.dialog.OnAccelerator(IDOK));
        LRESULT result = 0;
        EXPECT_FALSE(row.dialog.OnMessage(WM_SYSCOLORCHANGE, 0, 0, result));
        NMHDR header = {};
        EXPECT_FALSE(row.dialog.HandleNotify(header, result));
    }
}

}  // namespace
