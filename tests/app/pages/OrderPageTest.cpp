#include "OrderPageTest.h"

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

Ui::Picture OrderPageTest::StatePicture(ItemState state) const {
    const auto images =
        reinterpret_cast<HIMAGELIST>(SendMessageW(tree.Window(), TVM_GETIMAGELIST, TVSIL_STATE, 0));
    return Ui::OfImage(images, static_cast<int>(state), Ground);
}

Ui::Picture OrderPageTest::ButtonPicture(int id) const {
    const auto icon = reinterpret_cast<HICON>(SendMessageW(open->Control(id), BM_GETIMAGE, IMAGE_ICON, 0));
    return Ui::OfIcon(icon, GetSystemMetrics(SM_CXSMICON), Ground);
}
