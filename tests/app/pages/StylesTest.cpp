// What the program changes in the styles of the controls that the resource gives it.

#include "OpenPage.h"
#include "support/ui/DialogTable.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "pages/AboutController.h"
#include "resources/resource.h"
#include "support/ui/DismissModal.h"

namespace {

struct Change {
    int dialog;
    int id;
    DWORD added;
};

// A tree with check boxes for its two roots, and static texts that get mouse messages.
constexpr Change Changes[] = {
    {IDD_COLUMNS, IDC_COLUMNS_TREE, TVS_CHECKBOXES | TVS_LINESATROOT},
    {IDD_SORTING, IDC_SORTING_TREE, TVS_CHECKBOXES | TVS_LINESATROOT},
    {IDD_ABOUT, IDC_ABOUT_MAIL, SS_NOTIFY},
    {IDD_ABOUT, IDC_ABOUT_HOME, SS_NOTIFY},
};

// The lower half means what the class of the control makes of it; the upper one changes with the settings,
// and the system moves frames and scroll bars elsewhere.
WORD OwnStyle(DWORD style) {
    return LOWORD(style);
}

DWORD AddedTo(int dialog, int id) {
    const auto* const change = std::ranges::find_if(
        Changes, [&](const Change& row) { return row.dialog == dialog && row.id == id; });
    return change == std::end(Changes) ? 0 : change->added;
}

void ExpectStyles(int id, HWND dialog) {
    const auto row = std::ranges::find(Dialogs, id, &DialogRow::id);
    ASSERT_NE(row, Dialogs.end());
    for (const ControlRow& control : row->controls) {
        SCOPED_TRACE(testing::Message() << id << " " << control.id);
        const auto style = static_cast<DWORD>(GetWindowLongPtrW(GetDlgItem(dialog, control.id), GWL_STYLE));
        EXPECT_EQ(OwnStyle(style), OwnStyle(control.style | AddedTo(id, control.id)));
    }
}

TEST(Styles, OfThePagesAreThoseOfTheResourceButForTheTrees) {
    for (const PageKind* const kind : AllPages) {
        const TestSupport::TestRegistry registry;
        const OpenPage open(*kind);
        ExpectStyles(kind->dialog, open.window);
    }
}

TEST(Styles, OfTheAboutBoxAreThoseOfTheResourceButForTheLinks) {
    HostWindow host;
    AboutController controller;
    const Ui::DismissModal look([](HWND dialog) {
        ExpectStyles(IDD_ABOUT, dialog);
        PostMessageW(dialog, WM_CLOSE, 0, 0);
    });
    WinLib::RunModal(controller, IDD_ABOUT, host.Handle, host.Application.Instance);
    EXPECT_EQ(look.Seen().size(), 1u);
}

}  // namespace
