// The tree's controller alone, on the tree of the dialog resource: its items, and its calls of ICommand.

#include "app/MainTreeController.h"

#include <gtest/gtest.h>

#include <memory>

#include "resources/resource.h"
#include "support/ui/CommonControls.h"
#include "support/ui/TreeReader.h"
#include "winlib/Application.h"
#include "winlib/WindowText.h"

namespace {

using Names = std::vector<std::wstring>;

class RecordingCommand : public ICommand {
public:
    void NewPreset() override { calls.push_back(L"new"); }
    void NewFromTemplate(uint32_t index) override { calls.push_back(L"template " + std::to_wstring(index)); }
    void DuplicatePreset(HTREEITEM item) override { Record(L"duplicate", item); }
    void RemovePreset(HTREEITEM item) override { Record(L"remove", item); }
    void RenamePreset(HTREEITEM item, const std::wstring& text) override {
        Record(L"rename to " + text, item);
    }
    void ReorderPresets(const std::vector<uint32_t>& ids) override {
        calls.push_back(L"reorder " + std::to_wstring(ids.size()));
    }
    void ShowPage(HTREEITEM item) override { Record(L"show", item); }
    void ShowOptions() override { calls.push_back(L"options"); }
    void ShowAbout() override { calls.push_back(L"about"); }
    void EnableAccelerators() override { calls.push_back(L"accelerators on"); }
    void DisableAccelerators() override { calls.push_back(L"accelerators off"); }

    TreeReader tree;
    Names calls;

private:
    void Record(const std::wstring& call, HTREEITEM item) { calls.push_back(call + L": " + tree.Text(item)); }
};

// Gets the notifications of a label edit, as the main window hands them on; null to ignore them.
MainTreeController* notified = nullptr;

INT_PTR CALLBACK HandOnLabelEdits(HWND dialog, UINT message, WPARAM, LPARAM lParam) {
    if (message != WM_NOTIFY || notified == nullptr)
        return FALSE;
    const auto& notification = *reinterpret_cast<const NMTVDISPINFOW*>(lParam);
    LRESULT result = 0;
    if (notification.hdr.code == TVN_BEGINLABELEDITW)
        notified->AttachLabelEdit();
    else if (notification.hdr.code == TVN_ENDLABELEDITW)
        notified->EndRename(notification, result);
    else
        return FALSE;
    SetWindowLongPtrW(dialog, DWLP_MSGRESULT, result);
    return TRUE;
}

class TreeControllerTest : public testing::Test {
protected:
    TreeControllerTest() {
        Ui::InitCommonControls();
        WinLib::Application::Install(
            std::make_unique<WinLib::Application>(GetModuleHandleW(nullptr), L"", SW_SHOWNORMAL));
        controller = std::make_unique<MainTreeController>(command);
        dialog = CreateDialogParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDD_MAIN), nullptr,
                                    HandOnLabelEdits, 0);
        ShowWindow(dialog, SW_SHOW);
        tree = command.tree = TreeReader(GetDlgItem(dialog, IDC_MAIN_TREE));
        WinLib::Attach(*controller, tree.Window());
        controller->AddItems(first, L"First", ids);
        controller->AddItems(second, L"Second", ids);
    }
    ~TreeControllerTest() override {
        notified = nullptr;
        DestroyWindow(dialog);
    }

    HWND LabelEdit() const {
        return reinterpret_cast<HWND>(SendMessageW(tree.Window(), TVM_GETEDITCONTROL, 0, 0));
    }

    bool EditsLabels() const { return (GetWindowLongPtrW(tree.Window(), GWL_STYLE) & TVS_EDITLABELS) != 0; }

    RecordingCommand command;
    std::unique_ptr<MainTreeController> controller;
    HWND dialog = nullptr;
    TreeReader tree;
    HTREEITEM first = nullptr;
    HTREEITEM second = nullptr;
    std::vector<uint32_t> ids;
};

TEST_F(TreeControllerTest, IdsCountUpFromThePresetThroughItsPages) {
    ASSERT_EQ(ids.size(), 14u);
    for (size_t i = 1; i < ids.size(); ++i)
        EXPECT_EQ(ids[i], ids[0] + i);
    EXPECT_EQ(controller->ItemId(first), ids[0]);
    EXPECT_EQ(controller->ItemId(second), ids[7]);
    size_t index = 0;
    for (const wchar_t* page : {L"Display", L"Filter", L"Columns", L"Sorting", L"Saving", L"Opening"}) {
        const HTREEITEM child = tree.Child(first, page);
        EXPECT_EQ(controller->ItemId(child), ids[++index]);
        EXPECT_EQ(controller->ItemKindOf(child), ItemKind::Page);
        EXPECT_EQ(controller->PresetItemOf(child), first);
    }
    EXPECT_EQ(controller->ItemKindOf(first), ItemKind::Preset);
    EXPECT_EQ(controller->PresetItemOf(first), first);
}

TEST_F(TreeControllerTest, NothingIsKnownOfNoItem) {
    EXPECT_EQ(controller->ItemId(nullptr), 0u);
    EXPECT_EQ(controller->ItemKindOf(nullptr), std::nullopt);
    EXPECT_EQ(controller->PresetItemOf(nullptr), nullptr);
    EXPECT_FALSE(controller->TakeItem(nullptr).has_value());
}

TEST_F(TreeControllerTest, ATakenItemIsForgottenButRemains) {
    const std::optional<ItemInfo> taken = controller->TakeItem(second);
    ASSERT_TRUE(taken.has_value());
    EXPECT_EQ(taken->id, ids[7]);
    EXPECT_EQ(taken->kind, ItemKind::Preset);
    EXPECT_EQ(controller->ItemId(second), 0u);
    EXPECT_FALSE(controller->TakeItem(second).has_value());
    EXPECT_EQ(tree.Names(), (Names{L"First", L"Second"}));
}

TEST_F(TreeControllerTest, OnlyPresetsCanBeRenamed) {
    controller->BeginRename(tree.Child(first, L"Filter"));
    controller->BeginRename(nullptr);
    EXPECT_EQ(SendMessageW(tree.Window(), TVM_GETEDITCONTROL, 0, 0), 0);
    EXPECT_FALSE(GetWindowLongPtrW(tree.Window(), GWL_STYLE) & TVS_EDITLABELS);
    controller->BeginRename(second);
    EXPECT_NE(SendMessageW(tree.Window(), TVM_GETEDITCONTROL, 0, 0), 0);
    EXPECT_EQ(tree.Selected(), second);
}

TEST_F(TreeControllerTest, ANewNameIsShownAndPassedOn) {
    controller->BeginRename(first);
    controller->AttachLabelEdit();
    std::wstring name = L"Renamed";
    NMTVDISPINFOW notification = {};
    notification.item.hItem = first;
    notification.item.pszText = name.data();
    LRESULT result = 0;
    EXPECT_TRUE(controller->EndRename(notification, result));
    EXPECT_EQ(result, 1);
    EXPECT_EQ(command.calls, (Names{L"accelerators on", L"rename to Renamed: Renamed"}));
}

TEST_F(TreeControllerTest, ACancelledEditOnlyTurnsTheAcceleratorsOn) {
    controller->BeginRename(first);
    controller->AttachLabelEdit();
    NMTVDISPINFOW notification = {};
    notification.item.hItem = first;
    LRESULT result = 0;
    EXPECT_TRUE(controller->EndRename(notification, result));
    EXPECT_EQ(result, 0);
    EXPECT_EQ(command.calls, Names{L"accelerators on"});
    EXPECT_EQ(tree.Text(first), L"First");
}

// Taking the style for label edits away ends the edit once more.
TEST_F(TreeControllerTest, ARenameEndsOnce) {
    notified = controller.get();
    controller->BeginRename(first);
    SetWindowTextW(LabelEdit(), L"Renamed");
    SendMessageW(tree.Window(), TVM_ENDEDITLABELNOW, FALSE, 0);
    EXPECT_EQ(command.calls, (Names{L"accelerators on", L"rename to Renamed: Renamed"}));
    EXPECT_EQ(tree.Text(first), L"Renamed");
    EXPECT_FALSE(EditsLabels());
    EXPECT_EQ(LabelEdit(), nullptr);
}

TEST_F(TreeControllerTest, ACancelledRenameEndsOnce) {
    notified = controller.get();
    controller->BeginRename(first);
    SetWindowTextW(LabelEdit(), L"Renamed");
    SendMessageW(tree.Window(), TVM_ENDEDITLABELNOW, TRUE, 0);
    EXPECT_EQ(command.calls, Names{L"accelerators on"});
    EXPECT_EQ(tree.Text(first), L"First");
    EXPECT_FALSE(EditsLabels());
    EXPECT_EQ(LabelEdit(), nullptr);
}

TEST_F(TreeControllerTest, ARenameTakesTheNameOfTheOneThatItEnds) {
    notified = controller.get();
    for (const HTREEITEM next : {second, first}) {
        SCOPED_TRACE(next == first ? "the same item" : "another item");
        command.calls.clear();
        controller->BeginRename(first);
        SetWindowTextW(LabelEdit(), L"Renamed");
        controller->BeginRename(next);
        EXPECT_EQ(command.calls, (Names{L"accelerators on", L"rename to Renamed: Renamed"}));
        EXPECT_TRUE(EditsLabels());
        ASSERT_NE(LabelEdit(), nullptr);
        EXPECT_EQ(tree.Selected(), next);
        EXPECT_EQ(WinLib::GetWindowText(LabelEdit()), tree.Text(next));
        EXPECT_EQ(GetFocus(), LabelEdit());
        SendMessageW(tree.Window(), TVM_ENDEDITLABELNOW, TRUE, 0);
    }
}

TEST_F(TreeControllerTest, TheEditBoxTakesAllKeys) {
    controller->BeginRename(first);
    controller->AttachLabelEdit();
    const auto edit = reinterpret_cast<HWND>(SendMessageW(tree.Window(), TVM_GETEDITCONTROL, 0, 0));
    EXPECT_EQ(SendMessageW(edit, WM_GETDLGCODE, 0, 0), DLGC_WANTALLKEYS);
}

TEST_F(TreeControllerTest, ARightPressShowsThePageEvenOfTheSelectedItem) {
    tree.Select(second);
    const POINT point = tree.Middle(second);
    EXPECT_EQ(SendMessageW(tree.Window(), WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(point.x, point.y)), 0);
    EXPECT_EQ(command.calls, Names{L"show: Second"});
}

TEST_F(TreeControllerTest, LongNamesAreTakenWhole) {
    const std::wstring name(2047, L'n');
    HTREEITEM item = nullptr;
    controller->AddItems(item, name, ids);
    EXPECT_EQ(tree.Text(item), name);
}

}  // namespace
