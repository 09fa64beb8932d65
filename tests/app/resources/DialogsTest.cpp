// The templates of all dialogs and pages, as the built program contains them.

#include <gtest/gtest.h>

#include <set>

#include "BuiltFile.h"
#include "support/ui/DialogTable.h"
#include "support/ui/DialogTemplate.h"

namespace {

std::wstring Capitals(std::wstring text) {
    CharUpperW(text.data());
    return text;
}

class DialogTemplates : public testing::Test {
protected:
    Ui::DialogTemplate Read(const DialogRow& row) const {
        return Ui::ReadDialogTemplate(row.id, program.Module());
    }

    const BuiltFile program{L"tamblewick.exe"};
};

TEST_F(DialogTemplates, HaveTheirFrame) {
    for (const DialogRow& row : Dialogs) {
        SCOPED_TRACE(row.id);
        const Ui::DialogTemplate dialog = Read(row);
        EXPECT_EQ(dialog.caption, row.caption);
        EXPECT_EQ(dialog.cx, row.width);
        EXPECT_EQ(dialog.cy, row.height);
        EXPECT_EQ(dialog.style, row.style);
        EXPECT_EQ(dialog.exStyle, row.exStyle);
        EXPECT_EQ(dialog.help, 0u);
        EXPECT_EQ(dialog.menu, L"");
        EXPECT_EQ(dialog.className, L"");
    }
}

TEST_F(DialogTemplates, HaveTheFontOfTheSystemsDialogs) {
    for (const DialogRow& row : Dialogs) {
        SCOPED_TRACE(row.id);
        const Ui::DialogTemplate dialog = Read(row);
        EXPECT_EQ(dialog.typeface, L"MS Shell Dlg");
        EXPECT_EQ(dialog.pointSize, 8);
        EXPECT_EQ(dialog.weight, FW_NORMAL);
        EXPECT_FALSE(dialog.italic);
        EXPECT_EQ(dialog.charset, DEFAULT_CHARSET);
    }
}

TEST_F(DialogTemplates, HaveTheseControlsFromTheTopDown) {
    for (const DialogRow& row : Dialogs) {
        const Ui::DialogTemplate dialog = Read(row);
        ASSERT_EQ(dialog.items.size(), row.controls.size()) << row.id;
        for (size_t i = 0; i < row.controls.size(); ++i) {
            const ControlRow& control = row.controls[i];
            const Ui::TemplateItem& item = dialog.items[i];
            SCOPED_TRACE(testing::Message() << row.id << " " << control.id);
            EXPECT_EQ(item.id, control.id);
            EXPECT_EQ(item.className, Capitals(control.className));
            EXPECT_EQ(item.text, control.text);
            EXPECT_EQ(item.style, control.style);
            EXPECT_EQ(item.exStyle, 0u);
            EXPECT_EQ(item.help, 0u);
            EXPECT_EQ(item.dataSize, 0);
        }
    }
}

TEST_F(DialogTemplates, GiveTheControlsTheirPlaces) {
    for (const DialogRow& row : Dialogs) {
        const Ui::DialogTemplate dialog = Read(row);
        ASSERT_EQ(dialog.items.size(), row.controls.size()) << row.id;
        for (size_t i = 0; i < row.controls.size(); ++i) {
            const Place& place = row.controls[i].place;
            if (place.cx == 0)
                continue;
            const Ui::TemplateItem& item = dialog.items[i];
            SCOPED_TRACE(testing::Message() << row.id << " " << item.id);
            EXPECT_EQ(item.x, place.x);
            EXPECT_EQ(item.y, place.y);
            EXPECT_EQ(item.cx, place.cx);
            EXPECT_EQ(item.cy, place.cy);
        }
    }
}

// The program finds a control by its number.
TEST_F(DialogTemplates, UseNoNumberTwice) {
    for (const DialogRow& row : Dialogs) {
        std::set<int> ids;
        for (const Ui::TemplateItem& item : Read(row).items)
            EXPECT_TRUE(ids.insert(item.id).second) << row.id << " " << item.id;
    }
}

}  // namespace
