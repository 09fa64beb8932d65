#include "pages/OrderTree.h"

#include "resources/resource.h"
#include "winlib/Focus.h"
#include "winlib/WindowIcon.h"
#include "winlib/WindowStyle.h"
#include "winlib/controls/TreeView.h"

using WinLib::Controls::TreeView::GetItemState;
using WinLib::Controls::TreeView::ItemState;
using WinLib::Layout::Alignment;
using WinLib::Layout::HStack;
using WinLib::Layout::VStack;

namespace {

WinLib::UniqueHandle<HICON> LoadIconOf(WORD id) {
    return WinLib::LoadSmallIcon(GetModuleHandleW(nullptr), id);
}

// Image 0 is not used.
WinLib::UniqueHandle<HIMAGELIST> MakeStateImages(const std::array<WORD, 3>& icons) {
    WinLib::UniqueHandle<HIMAGELIST> images(ImageList_Create(16, 16, ILC_COLOR32 | ILC_MASK, 4, 0));
    for (const WORD id : {icons[0], icons[0], icons[1], icons[2]})
        ImageList_ReplaceIcon(images.get(), -1, LoadIconOf(id).get());
    return images;
}

}  // namespace

void OrderTree::Attach(HWND tree, HWND upButton, HWND downButton, const std::array<WORD, 3>& stateIcons) {
    tree_ = WinLib::Controls::Tree(tree);
    upButton_ = upButton;
    downButton_ = downButton;
    tree_.UseUnicode();
    WinLib::AddStyle(tree_, TVS_CHECKBOXES | TVS_LINESATROOT);
    states_.StateImages = MakeStateImages(stateIcons);
    WinLib::Attach(states_, tree_);
    upIcon_ = LoadIconOf(IDI_MOVE_UP);
    downIcon_ = LoadIconOf(IDI_MOVE_DOWN);
    SendMessageW(upButton_, BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(upIcon_.get()));
    SendMessageW(downButton_, BM_SETIMAGE, IMAGE_ICON, reinterpret_cast<LPARAM>(downIcon_.get()));
    // Not drawn, but read to those who cannot see the pictures.
    SetWindowTextW(upButton_, L"Move up");
    SetWindowTextW(downButton_, L"Move down");
}

void OrderTree::AddTo(VStack& page, HWND caption) {
    HStack* const row = page.AddHStack(1, {}, 8);
    VStack* const left = row->AddVStack(1, {}, 8);
    left->AddWindow(0, caption, Alignment::Near, Alignment::Center);
    left->AddWindow(1, tree_, Alignment::Fill, Alignment::Fill);
    VStack* const buttons = row->AddVStack(0, {}, 8);
    buttons->AddSpacer(1, 0);
    buttons->AddWindow(0, upButton_, Alignment::Center, Alignment::Center);
    buttons->AddWindow(0, downButton_, Alignment::Center, Alignment::Center);
    buttons->AddSpacer(1, 0);
}

void OrderTree::Fill(std::span<const Child> folders, std::span<const Child> files) {
    tree_.Remove(TVI_ROOT);
    const HTREEITEM folderRoot = AddRoot(L"Folders", Root::Folders, folders);
    const HTREEITEM fileRoot = AddRoot(L"Files", Root::Files, files);
    for (const HTREEITEM root : {folderRoot, fileRoot})
        states_.UpdateParent(root);
    for (const HTREEITEM root : {folderRoot, fileRoot})
        tree_.Expand(root, true);
    tree_.Select(folderRoot);
}

HTREEITEM OrderTree::AddRoot(const wchar_t* text, Root root, std::span<const Child> children) {
    const HTREEITEM item = tree_.Insert(TVI_ROOT, text, static_cast<LPARAM>(root));
    for (const Child& child : children)
        tree_.Insert(item, child.label, static_cast<LPARAM>(child.value),
                     INDEXTOSTATEIMAGEMASK(static_cast<UINT>(ItemState::Checked)),
                     child.checked ? TVIS_STATEIMAGEMASK : 0);
    return item;
}

void OrderTree::MoveUp() {
    Exchange(TVGN_PREVIOUS);
}

void OrderTree::MoveDown() {
    Exchange(TVGN_NEXT);
}

void OrderTree::Exchange(UINT neighbour) {
    const HTREEITEM selected = tree_.Caret();
    const HTREEITEM other = tree_.Next(neighbour, selected);
    if (selected != nullptr && other != nullptr)
        WinLib::Controls::TreeView::SwapItems(tree_, selected, other);
}

void OrderTree::UpdateButtons() {
    const HTREEITEM selected = tree_.Caret();
    const bool isChild = selected != nullptr && tree_.Parent(selected) != nullptr;
    const bool canGoUp = isChild && tree_.Next(TVGN_PREVIOUS, selected) != nullptr;
    const bool canGoDown = isChild && tree_.Next(TVGN_NEXT, selected) != nullptr;
    // Where an item cannot go on, the button for the way back gets the focus.
    WinLib::EnableControl(upButton_, canGoUp, canGoDown ? downButton_ : tree_);
    WinLib::EnableControl(downButton_, canGoDown, canGoUp ? upButton_ : tree_);
}

std::vector<OrderTree::Child> OrderTree::Children(Root root) const {
    std::vector<Child> children;
    for (const HTREEITEM parent : tree_.Children(TVI_ROOT)) {
        if (tree_.Parameter(parent) != static_cast<LPARAM>(root))
            continue;
        for (const HTREEITEM item : tree_.Children(parent))
            children.push_back({nullptr, static_cast<uint32_t>(tree_.Parameter(item).value_or(0)),
                                GetItemState(tree_, item) == ItemState::Checked});
    }
    return children;
}
