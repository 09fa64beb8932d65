// What the tests of "Columns" and "Sorting" share: the page's tree and buttons as the user sees them.
#pragma once

#include <gtest/gtest.h>

#include <optional>

#include "OpenPage.h"
#include "support/ui/Picture.h"
#include "winlib/controls/ThreeStateCtrl.h"

using WinLib::Controls::TreeView::ItemState;

class OrderPageTest : public testing::Test {
protected:
    OrderPageTest(const PageKind& kind, int treeId, int upId, int downId)
        : kind_(kind), treeId_(treeId), upId_(upId), downId_(downId) {}

    void Open() {
        open.emplace(kind_);
        tree = TreeReader(open->Control(treeId_));
    }

    HTREEITEM Folders() const { return tree.Item(L"Folders"); }
    HTREEITEM Files() const { return tree.Item(L"Files"); }
    HTREEITEM Child(HTREEITEM root, int index) const;
    ItemState State(HTREEITEM item) const {
        return WinLib::Controls::TreeView::GetItemState(tree.Window(), item);
    }
    std::vector<ItemState> States(HTREEITEM root) const;
    std::vector<LPARAM> Parameters(HTREEITEM root) const;

    // A click on the item's state image or label.
    void ClickState(HTREEITEM item) const;
    void ClickLabel(HTREEITEM item) const;

    // What the page shows as it opens: its two roots, expanded, with the first selected.
    void ExpectTwoRoots() const;

    // The pictures of the three states, by the numbers of their icons.
    void ExpectStatePictures(WORD uncheckedId, WORD checkedId, WORD mixedId) const;

    // The arrows and the names of the two buttons.
    void ExpectButtons() const;

    void MoveUp() const { open->Click(upId_); }
    void MoveDown() const { open->Click(downId_); }
    bool CanMoveUp() const { return open->IsEnabled(upId_); }
    bool CanMoveDown() const { return open->IsEnabled(downId_); }

    // The values "0", "1", ... of an array's key below the preset, as they are or as they must be.
    using Values = std::vector<TestSupport::RegistryValue>;
    Values Stored(const wchar_t* array) const;
    static Values Words(const std::vector<std::wstring>& words);
    static Values Bools(const std::vector<uint32_t>& bools);

    // Empties the registry, so that a later save shows.
    void ForgetStored() { registry.DeleteKey(PresetKey); }
    bool IsStored() const { return registry.KeyExists(PresetKey); }

    TestSupport::TestRegistry registry;
    std::optional<OpenPage> open;
    TreeReader tree;

private:
    Ui::Picture StatePicture(ItemState state) const;
    Ui::Picture ButtonPicture(int id) const;

    const PageKind& kind_;
    int treeId_, upId_, downId_;
};
