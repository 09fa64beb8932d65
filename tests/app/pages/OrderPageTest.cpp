#include "OrderPageTest.h"

#include "resources/resource.h"

namespace {

// The ground on which a picture is drawn to be compared.
constexpr COLORREF Ground = RGB(255, 255, 255);

}  // namespace

HTREEITEM OrderPageTest::Child(HTREEITEM root, int index) const {
    HTREEITEM item = tree.Related(root, TVGN_CHILD);
    for (int i = 0; i < index; ++i)
        item = tree.Related(item, TVGN_NEXT);
    return item;
}

std::vector<ItemState> OrderPageTest::States(HTREEITEM root) const {
    std::vector<ItemState> states;
    for (HTREEITEM item = tree.Related(root, TVGN_CHILD); item != nullptr;
         item = tree.Related(item, TVGN_NEXT))
        states.push_back(State(item));
    return states;
}

std::vector<LPARAM> OrderPageTest::Parameters(HTREEITEM root) const {
    std::vector<LPARAM> parameters;
    for (HTREEITEM item = tree.Related(root, TVGN_CHILD); item != nullptr;
         item = tree.Related(item, TVGN_NEXT))
        parameters.push_back(tree.Parameter(item));
    return parameters;
}

void OrderPageTest::ClickLabel(HTREEITEM item) const {
    SendMessageW(tree.Window(), TVM_ENSUREVISIBLE, 0, reinterpret_cast<LPARAM>(item));
    Ui::Click(tree.Window(), tree.Middle(item));
}

void OrderPageTest::ClickState(HTREEITEM item) const {
    SendMessageW(tree.Window(), TVM_ENSUREVISIBLE, 0, reinterpret_cast<LPARAM>(item));
    TVHITTESTINFO hit = {};
    for (hit.pt = tree.Middle(item); hit.pt.x > 0; hit.pt.x--) {
        SendMessageW(tree.Window(), TVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit));
        if (hit.flags & TVHT_ONITEMSTATEICON) {
            Ui::Click(tree.Window(), {hit.pt.x - 4, hit.pt.y});
            return;
        }
    }
    ADD_FAILURE() << "the item has no state image";
}

OrderPageTest::Values OrderPageTest::Stored(const wchar_t* array) const {
    Values values;
    const std::wstring key = PresetKey + L"\\" + array;
    while (const auto value = registry.Get(key, std::to_wstring(values.size())))
        values.push_back(*value);
    return values;
}

OrderPageTest::Values OrderPageTest::Words(const std::vector<std::wstring>& words) {
    Values values;
    for (const std::wstring& word : words)
        values.push_back(TestSupport::StringValue(word));
    return values;
}

OrderPageTest::Values OrderPageTest::Bools(const std::vector<uint32_t>& bools) {
    Values values;
    for (const uint32_t value : bools)
        values.push_back(TestSupport::DwordValue(value));
    return values;
}

void OrderPageTest::ExpectTwoRoots() const {
    EXPECT_EQ(tree.Names(), (std::vector<std::wstring>{L"Folders", L"Files"}));
    EXPECT_EQ(tree.Parameter(Folders()), 0);
    EXPECT_EQ(tree.Parameter(Files()), 1);
    EXPECT_TRUE(tree.IsExpanded(Folders()));
    EXPECT_TRUE(tree.IsExpanded(Files()));
    EXPECT_EQ(tree.Selected(), Folders());
    EXPECT_FALSE(CanMoveUp());
    EXPECT_FALSE(CanMoveDown());
}

void OrderPageTest::ExpectStatePictures(WORD uncheckedId, WORD checkedId, WORD mixedId) const {
    EXPECT_TRUE(StatePicture(ItemState::Unchecked).Resembles(Ui::OfSmallIcon(uncheckedId, Ground)));
    EXPECT_TRUE(StatePicture(ItemState::Checked).Resembles(Ui::OfSmallIcon(checkedId, Ground)));
    EXPECT_TRUE(StatePicture(ItemState::Mixed).Resembles(Ui::OfSmallIcon(mixedId, Ground)));
}

void OrderPageTest::ExpectButtons() const {
    EXPECT_TRUE(ButtonPicture(upId_).Resembles(Ui::OfSmallIcon(IDI_MOVE_UP, Ground)));
    EXPECT_TRUE(ButtonPicture(downId_).Resembles(Ui::OfSmallIcon(IDI_MOVE_DOWN, Ground)));
    EXPECT_EQ(open->Text(upId_), L"Move up");
    EXPECT_EQ(open->Text(downId_), L"Move down");
}

Ui::Picture OrderPageTest::StatePicture(ItemState state) const {
    const auto images =
        reinterpret_cast<HIMAGELIST>(SendMessageW(tree.Window(), TVM_GETIMAGELIST, TVSIL_STATE, 0));
    return Ui::OfImage(images, static_cast<int>(state), Ground);
}

Ui::Picture OrderPageTest::ButtonPicture(int id) const {
    const auto icon = reinterpret_cast<HICON>(SendMessageW(open->Control(id), BM_GETIMAGE, IMAGE_ICON, 0));
    return Ui::OfIcon(icon, GetSystemMetrics(SM_CXSMICON), Ground);
}
