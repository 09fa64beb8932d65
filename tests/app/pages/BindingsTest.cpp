// What every page does with the controls that show one field: each exists, shows the stored value, and a
// change is in the registry at once.

#include "OpenPage.h"

#include <gtest/gtest.h>

#include "resources/resource.h"

using TestSupport::DwordValue;
using TestSupport::StringValue;
using TestSupport::TestRegistry;

namespace {

struct CheckBoxRow {
    const PageKind& page;
    int id;
    const wchar_t* section;
    const wchar_t* field;
    bool inverted;
};

const CheckBoxRow CheckBoxes[] = {
    {Kind::Format, IDC_FORMAT_UTF8, L"Format", L"EnableUtf8", false},
    {Kind::Display, IDC_DISPLAY_SUBFOLDERS, L"Display", L"SearchSubfolders", false},
    {Kind::Display, IDC_DISPLAY_HIDDEN, L"Display", L"SearchHidden", false},
    {Kind::Display, IDC_DISPLAY_GROUPED, L"Display", L"ShowFlatStyle", true},
    {Kind::Display, IDC_DISPLAY_STATISTICS, L"Display", L"ShowStatistics", false},
    {Kind::Columns, IDC_COLUMNS_HEADERS, L"Columns", L"ShowHeaders", false},
    {Kind::Sorting, IDC_SORTING_NATURAL, L"Sorting", L"SortDigitsAsNumbers", false},
    {Kind::Saving, IDC_SAVING_OVERWRITE, L"Saving", L"OverwriteExisting", false},
};

struct RadioRow {
    const PageKind& page;
    const wchar_t* section;
    const wchar_t* field;
    std::vector<std::pair<int, const wchar_t*>> buttons;
};

const RadioRow RadioGroups[] = {
    {Kind::Format, L"Format", L"ListStyle", {{IDC_FORMAT_TEXT, L"Text"}, {IDC_FORMAT_HTML, L"Html"}}},
    {Kind::Saving,
     L"Saving",
     L"SaveLocation",
     {{IDC_SAVING_TEMPORARY, L"Temporary"},
      {IDC_SAVING_SAME_PATH, L"SamePath"},
      {IDC_SAVING_CUSTOM, L"Custom"}}},
    {Kind::Opening,
     L"Opening",
     L"OpenMethod",
     {{IDC_OPENING_DEFAULT, L"Default"}, {IDC_OPENING_NOTHING, L"Nothing"}, {IDC_OPENING_CUSTOM, L"Custom"}}},
};

struct TextRow {
    const PageKind& page;
    int id;
    int button;  // to be checked before the text can be typed
    const wchar_t* section;
    const wchar_t* field;
};

const TextRow TextFields[] = {
    {Kind::Saving, IDC_SAVING_PATH, IDC_SAVING_CUSTOM, L"Saving", L"CustomFolderPath"},
    {Kind::Opening, IDC_OPENING_PATH, IDC_OPENING_CUSTOM, L"Opening", L"CustomProgramPath"},
};

std::wstring SectionKey(const wchar_t* section) {
    return PresetKey + L"\\" + section;
}

TEST(Bindings, CheckBoxShowsTheStoredValueAndStoresEachClick) {
    for (const CheckBoxRow& row : CheckBoxes) {
        for (const bool stored : {false, true}) {
            SCOPED_TRACE(testing::Message() << row.page.name << " " << row.id << ", stored " << stored);
            const TestRegistry registry;
            registry.SetDword(SectionKey(row.section), row.field, stored);
            const OpenPage open(row.page);
            EXPECT_EQ(open.IsChecked(row.id), stored != row.inverted);
            for (const bool now : {!stored, stored}) {
                open.Click(row.id);
                EXPECT_EQ(open.IsChecked(row.id), now != row.inverted);
                EXPECT_EQ(registry.Get(SectionKey(row.section), row.field), DwordValue(now));
            }
        }
    }
}

TEST(Bindings, ClickSavesTheWholePresetAndKeepsUnknownValues) {
    for (const CheckBoxRow& row : CheckBoxes) {
        SCOPED_TRACE(testing::Message() << row.page.name << " " << row.id);
        const TestRegistry registry;
        const OpenPage open(row.page);
        registry.DeleteKey(PresetKey);
        registry.SetDword(PresetKey, L"Unknown", 5);
        open.Click(row.id);
        EXPECT_EQ(registry.ValueNames(PresetKey),
                  (std::vector<std::wstring>{L"Name", L"Position", L"Unknown"}));
        EXPECT_EQ(registry.Subkeys(PresetKey),
                  (std::vector<std::wstring>{L"Columns", L"Display", L"Filter", L"Format", L"Opening",
                                             L"Saving", L"Sorting"}));
        EXPECT_EQ(registry.Get(PresetKey, L"Unknown"), DwordValue(5));
    }
}

TEST(Bindings, SpaceTicksAsAClickDoes) {
    for (const CheckBoxRow& row : CheckBoxes) {
        SCOPED_TRACE(testing::Message() << row.page.name << " " << row.id);
        const TestRegistry registry;
        registry.SetDword(SectionKey(row.section), row.field, 0);
        OpenPage open(row.page);
        open.Focus(row.id);
        Ui::TypeKeys(open.pump, {VK_SPACE});
        EXPECT_EQ(registry.Get(SectionKey(row.section), row.field), DwordValue(1));
    }
}

TEST(Bindings, RadioButtonOfTheStoredValueIsChecked) {
    for (const RadioRow& row : RadioGroups) {
        for (const auto& [stored, value] : row.buttons) {
            SCOPED_TRACE(testing::Message() << row.page.name << " " << stored);
            const TestRegistry registry;
            registry.SetString(SectionKey(row.section), row.field, value);
            const OpenPage open(row.page);
            for (const auto& [id, ignored] : row.buttons)
                EXPECT_EQ(open.IsChecked(id), id == stored) << id;
        }
    }
}

TEST(Bindings, UnknownWordTicksTheFirstRadioButton) {
    for (const RadioRow& row : RadioGroups) {
        SCOPED_TRACE(row.page.name);
        const TestRegistry registry;
        registry.SetString(SectionKey(row.section), row.field, L"Nonsense");
        const OpenPage open(row.page);
        for (const auto& [id, ignored] : row.buttons)
            EXPECT_EQ(open.IsChecked(id), id == row.buttons.front().first) << id;
    }
}

TEST(Bindings, ClickOnARadioButtonStoresItsValue) {
    for (const RadioRow& row : RadioGroups) {
        const TestRegistry registry;
        const OpenPage open(row.page);
        for (size_t i = row.buttons.size(); i-- > 0;) {
            const auto& [clicked, value] = row.buttons[i];
            SCOPED_TRACE(testing::Message() << row.page.name << " " << clicked);
            open.Click(clicked);
            for (const auto& [id, ignored] : row.buttons)
                EXPECT_EQ(open.IsChecked(id), id == clicked) << id;
            EXPECT_EQ(registry.Get(SectionKey(row.section), row.field), StringValue(value));
        }
    }
}

TEST(Bindings, ArrowKeysWalkTheRadioButtons) {
    for (const RadioRow& row : RadioGroups) {
        SCOPED_TRACE(row.page.name);
        const TestRegistry registry;
        OpenPage open(row.page);
        open.Focus(row.buttons[0].first);
        Ui::TypeKeys(open.pump, {VK_DOWN});
        EXPECT_TRUE(open.IsChecked(row.buttons[1].first));
        EXPECT_EQ(registry.Get(SectionKey(row.section), row.field), StringValue(row.buttons[1].second));
    }
}

TEST(Bindings, TextFieldShowsTheStoredTextAndStoresEachKey) {
    for (const TextRow& row : TextFields) {
        SCOPED_TRACE(row.page.name);
        const TestRegistry registry;
        registry.SetString(SectionKey(row.section), row.field, L"C:\\old");
        OpenPage open(row.page);
        EXPECT_EQ(open.Text(row.id), L"C:\\old");
        open.Click(row.button);
        open.Focus(row.id);
        SendMessageW(open.Control(row.id), EM_SETSEL, 0, -1);
        std::wstring typed;
        for (const wchar_t key : std::wstring(L"D:\\ neu \x00FC\x4E2D")) {
            Ui::TypeText(open.pump, {key});
            typed += key;
            EXPECT_EQ(registry.Get(SectionKey(row.section), row.field), StringValue(typed));
        }
    }
}

TEST(Bindings, RefreshOfATextStoresIt) {
    for (const TextRow& row : TextFields) {
        SCOPED_TRACE(row.page.name);
        const TestRegistry registry;
        registry.SetString(SectionKey(row.section), row.field, L"C:\\old");
        const OpenPage open(row.page);
        EXPECT_TRUE(registry.Get(PresetKey, L"Name").has_value()) << "the whole preset has been saved";
    }
}

TEST(Bindings, EmptyTextIsStoredAsSuch) {
    for (const TextRow& row : TextFields) {
        SCOPED_TRACE(row.page.name);
        const TestRegistry registry;
        registry.SetString(SectionKey(row.section), row.field, L"x");
        OpenPage open(row.page);
        open.Click(row.button);
        open.Focus(row.id);
        SendMessageW(open.Control(row.id), EM_SETSEL, 0, -1);
        Ui::TypeText(open.pump, L"\b");
        EXPECT_EQ(registry.Get(SectionKey(row.section), row.field), StringValue(L""));
    }
}

}  // namespace
