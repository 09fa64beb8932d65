#include "app/Menus.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "winlib/Application.h"

namespace {

constexpr UINT Separator = MFT_SEPARATOR;

// An entry of a menu. A separator has neither text nor id, a submenu has no id of its own.
struct Entry {
    std::wstring text;
    UINT id;
    UINT state = 0;
    std::vector<Entry> submenu = {};

    bool operator==(const Entry&) const = default;
};

void PrintTo(const Entry& entry, std::ostream* out) {
    *out << testing::PrintToString(entry.text) << " " << entry.id << " " << entry.state << " "
         << testing::PrintToString(entry.submenu);
}

const Entry Line = {L"", 0};

std::vector<Entry> Read(HMENU menu) {
    std::vector<Entry> entries;
    for (int i = 0; i < GetMenuItemCount(menu); ++i) {
        wchar_t text[200] = {};
        MENUITEMINFOW info = {};
        info.cbSize = sizeof(info);
        info.fMask = MIIM_FTYPE | MIIM_STATE | MIIM_ID | MIIM_SUBMENU | MIIM_STRING;
        info.dwTypeData = text;
        info.cch = 200;
        GetMenuItemInfoW(menu, static_cast<UINT>(i), TRUE, &info);
        // Neither in a column of its own nor drawn by the program.
        EXPECT_EQ(info.fType & ~Separator, static_cast<UINT>(MFT_STRING)) << testing::PrintToString(text);
        if (info.fType & Separator)
            entries.push_back(Line);
        else if (info.hSubMenu != nullptr)
            entries.push_back({text, 0, info.fState, Read(info.hSubMenu)});
        else
            entries.push_back({text, info.wID, info.fState});
    }
    return entries;
}

std::vector<Entry> TemplateEntries(UINT firstId) {
    return {
        {L"All files (Simple, Text)", firstId},
        {L"All files (Simple, HTML)", firstId + 1},
        {L"All files (Details, HTML)", firstId + 2},
        {L"Audio-files (HTML)", firstId + 3},
        {L"Video-files (HTML)", firstId + 4},
        {L"Repository (Exclude .git, .svn and .hg)", firstId + 5},
    };
}

TEST(Menus, MenuBarHasTheTemplatesUnderFile) {
    const WinLib::UniqueHandle<HMENU> templates = MakeTemplateMenu(256);
    const WinLib::UniqueHandle<HMENU> bar = MakeMenuBar(GetModuleHandleW(nullptr), templates.get());
    const std::vector<Entry> expected = {
        {L"&File",
         0,
         0,
         {{L"&New\tF5", 40007},
          {L"New from Template", 0, 0, TemplateEntries(256)},
          Line,
          {L"E&xit\tALT+F4", 40009}}},
        {L"&Edit",
         0,
         0,
         {{L"&Duplicate\tF6", 40015},
          {L"&Rename\tF2", 40016},
          Line,
          {L"Re&move\tDEL", 40017},
          Line,
          {L"&Options...\tF7", 40028}}},
        {L"&Help", 0, 0, {{L"&About...\tF1", 40006}}},
    };
    EXPECT_EQ(Read(bar.get()), expected);
}

std::vector<Entry> ContextMenu(UINT itemState) {
    return {
        {L"New\tF5", 1},
        {L"New from Template", 0, 0, TemplateEntries(128)},
        Line,
        {L"Duplicate\tF6", 2, itemState},
        {L"Rename\tF2", 4, itemState},
        Line,
        {L"Remove\tDEL", 8, itemState},
    };
}

TEST(Menus, ContextMenuOfAPreset) {
    EXPECT_EQ(Read(MakeTreeMenu(true).get()), ContextMenu(MFS_ENABLED));
}

TEST(Menus, ContextMenuWithoutAPresetHasGrayItemCommands) {
    EXPECT_EQ(Read(MakeTreeMenu(false).get()), ContextMenu(MF_GRAYED | MF_DISABLED));
}

TEST(Menus, DestroyingTheContextMenuTakesItsSubmenuAlong) {
    WinLib::UniqueHandle<HMENU> menu = MakeTreeMenu(true);
    const HMENU submenu = GetSubMenu(menu.get(), 1);
    ASSERT_TRUE(IsMenu(submenu));
    menu.reset();
    EXPECT_FALSE(IsMenu(submenu));
}

}  // namespace
