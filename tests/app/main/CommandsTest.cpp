// The table of commands: what each row asks for, and by which menu entry, key and bit it is found.

#include "app/Commands.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "BareDialog.h"

namespace {

const auto Item = reinterpret_cast<HTREEITEM>(17);

std::wstring Named(const std::wstring& call, HTREEITEM item) {
    return item == Item ? call + L" the item" : call + L" another item";
}

class RecordingTarget : public ICommand, public ILabelEditor {
public:
    void NewPreset() override { call = L"new"; }
    void NewFromTemplate(uint32_t) override { call = L"template"; }
    void DuplicatePreset(HTREEITEM item) override { call = Named(L"duplicate", item); }
    void RemovePreset(HTREEITEM item) override { call = Named(L"remove", item); }
    void RenamePreset(HTREEITEM, const std::wstring&) override { call = L"renamed"; }
    void ReorderPresets(const std::vector<uint32_t>&) override { call = L"reorder"; }
    void ShowPage(HTREEITEM) override { call = L"show"; }
    void ShowOptions() override { call = L"options"; }
    void ShowAbout() override { call = L"about"; }
    void EnableAccelerators() override { call = L"on"; }
    void DisableAccelerators() override { call = L"off"; }
    void BeginRename(HTREEITEM item) override { call = Named(L"rename", item); }

    std::wstring call;
};

// What the command of a row calls; "none" for no row.
std::wstring CallOf(const CommandRow* command) {
    if (command == nullptr)
        return L"none";
    RecordingTarget target;
    command->run({nullptr, target, target, Item});
    return target.call;
}

TEST(Commands, EachMenuEntryHasItsAction) {
    EXPECT_EQ(CallOf(FindMenuCommand(40007)), L"new");
    EXPECT_EQ(CallOf(FindMenuCommand(40015)), L"duplicate the item");
    EXPECT_EQ(CallOf(FindMenuCommand(40016)), L"rename the item");
    EXPECT_EQ(CallOf(FindMenuCommand(40017)), L"remove the item");
    EXPECT_EQ(CallOf(FindMenuCommand(40028)), L"options");
    EXPECT_EQ(CallOf(FindMenuCommand(40006)), L"about");
    EXPECT_EQ(FindMenuCommand(40008), nullptr);
    EXPECT_EQ(FindMenuCommand(0), nullptr);
}

TEST(Commands, EachKeyHasItsAction) {
    EXPECT_EQ(CallOf(FindKeyCommand(VK_F5)), L"new");
    EXPECT_EQ(CallOf(FindKeyCommand(VK_F6)), L"duplicate the item");
    EXPECT_EQ(CallOf(FindKeyCommand(VK_F2)), L"rename the item");
    EXPECT_EQ(CallOf(FindKeyCommand(VK_DELETE)), L"remove the item");
    EXPECT_EQ(CallOf(FindKeyCommand(VK_F7)), L"options");
    EXPECT_EQ(CallOf(FindKeyCommand(VK_F1)), L"about");
    EXPECT_EQ(FindKeyCommand(VK_F4), nullptr);
}

TEST(Commands, ExitHasNoKeyOfItsOwn) {
    ASSERT_NE(FindMenuCommand(40009), nullptr);
    EXPECT_EQ(FindKeyCommand(0), nullptr);
}

TEST(Commands, EachBitOfTheContextMenuHasItsAction) {
    EXPECT_EQ(CallOf(FindContextCommand(1)), L"new");
    EXPECT_EQ(CallOf(FindContextCommand(2)), L"duplicate the item");
    EXPECT_EQ(CallOf(FindContextCommand(4)), L"rename the item");
    EXPECT_EQ(CallOf(FindContextCommand(8)), L"remove the item");
    EXPECT_EQ(FindContextCommand(0), nullptr);
    EXPECT_EQ(FindContextCommand(16), nullptr);
}

TEST(Commands, OnlyThoseOnItemsNeedAPreset) {
    std::vector<WORD> ids;
    for (const CommandRow& command : Commands)
        if (command.needsPreset)
            ids.push_back(command.menuId);
    EXPECT_EQ(ids, (std::vector<WORD>{40015, 40016, 40017}));
}

TEST(Commands, ExitClosesTheWindow) {
    const BareDialog dialog;
    bool closed = false;
    SetWindowSubclass(
        dialog.Handle,
        [](HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR flag) -> LRESULT {
            if (message != WM_CLOSE)
                return DefSubclassProc(window, message, wParam, lParam);
            *reinterpret_cast<bool*>(flag) = true;
            return 0;
        },
        1, reinterpret_cast<DWORD_PTR>(&closed));
    RecordingTarget target;
    FindMenuCommand(40009)->run({dialog.Handle, target, target, nullptr});
    EXPECT_TRUE(closed);
}

}  // namespace
