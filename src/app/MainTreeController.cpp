#include "app/MainTreeController.h"

#include "app/Menus.h"
#include "winlib/WindowStyle.h"

namespace {

constexpr int ItemHeight = 18;
constexpr const wchar_t* PageNames[] = {L"Display", L"Filter", L"Columns", L"Sorting", L"Saving", L"Opening"};

// Increased before each use. Main thread only.
uint32_t NextItemId = 0;

}  // namespace

MainTreeController::MainTreeController(ICommand& command) : Command(&command) {}

void MainTreeController::OnAttach() {
    TreeWindow = WinLib::Controls::Tree(Handle);
    Drag.Attach(TreeWindow);
    WinLib::AddStyle(TreeWindow, TVS_HASBUTTONS);
    TreeWindow.SetItemHeight(ItemHeight);
}

bool MainTreeController::OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    switch (message) {
        case WM_RBUTTONDOWN:
            return Handler<WM_RBUTTONDOWN>::Dispatch(wParam, lParam, result);
        case WM_RBUTTONUP:
            return Handler<WM_RBUTTONUP>::Dispatch(wParam, lParam, result);
        case WM_LBUTTONDOWN:
            return Handler<WM_LBUTTONDOWN>::Dispatch(wParam, lParam, result);
        case WM_LBUTTONUP:
            return Handler<WM_LBUTTONUP>::Dispatch(wParam, lParam, result);
        case WM_MOUSEMOVE:
            return Handler<WM_MOUSEMOVE>::Dispatch(wParam, lParam, result);
        case WM_CAPTURECHANGED:
            Drag.CaptureLost();
            return false;
        default:
            return WinLib::Window::Controller::OnMessage(message, wParam, lParam, result);
    }
}

void MainTreeController::AddItems(HTREEITEM& itemOut, const std::wstring& name,
                                  std::vector<uint32_t>& idsOut) {
    itemOut = InsertItem(TVI_ROOT, name.c_str(), ItemKind::Preset, idsOut);
    for (const wchar_t* page : PageNames)
        InsertItem(itemOut, page, ItemKind::Page, idsOut);
}

HTREEITEM MainTreeController::InsertItem(HTREEITEM parent, const wchar_t* text, ItemKind kind,
                                         std::vector<uint32_t>& idsOut) {
    const uint32_t id = ++NextItemId;
    const HTREEITEM item = TreeWindow.Insert(parent, text, id);
    idsOut.push_back(id);
    Items[id] = {kind, id};
    return item;
}

std::optional<ItemInfo> MainTreeController::InfoOf(HTREEITEM item) const {
    const std::optional<LPARAM> id = TreeWindow.Parameter(item);
    if (!id)
        return std::nullopt;
    const auto entry = Items.find(static_cast<uint32_t>(*id));
    if (entry == Items.end())
        return std::nullopt;
    return entry->second;
}

uint32_t MainTreeController::ItemId(HTREEITEM item) const {
    const std::optional<ItemInfo> info = InfoOf(item);
    return info ? info->id : 0;
}

std::optional<ItemKind> MainTreeController::ItemKindOf(HTREEITEM item) const {
    const std::optional<ItemInfo> info = InfoOf(item);
    return info ? std::optional(info->kind) : std::nullopt;
}

std::optional<ItemInfo> MainTreeController::TakeItem(HTREEITEM item) {
    Drag.EndOf(item);
    const std::optional<ItemInfo> info = InfoOf(item);
    if (info)
        Items.erase(info->id);
    return info;
}

std::vector<uint32_t> MainTreeController::RemoveItems(HTREEITEM item) {
    std::vector<HTREEITEM> branch = TreeWindow.Children(item);
    branch.insert(branch.begin(), item);
    std::vector<uint32_t> ids;
    for (const HTREEITEM taken : branch)
        if (const std::optional<ItemInfo> info = TakeItem(taken))
            ids.push_back(info->id);
    TreeWindow.Remove(item);
    return ids;
}

HTREEITEM MainTreeController::PresetItemOf(HTREEITEM item) const {
    const std::optional<ItemKind> kind = ItemKindOf(item);
    if (kind == ItemKind::Preset)
        return item;
    return kind == ItemKind::Page ? TreeWindow.Parent(item) : nullptr;
}

HTREEITEM MainTreeController::SelectedItem() const {
    return TreeWindow.Caret();
}

HTREEITEM MainTreeController::FirstItem() const {
    return TreeWindow.Next(TVGN_ROOT, nullptr);
}

void MainTreeController::Select(HTREEITEM item) const {
    TreeWindow.Select(item);
}

void MainTreeController::BeginRename(HTREEITEM item) {
    if (ItemKindOf(item) != ItemKind::Preset)
        return;
    // The end of an edit takes the style away.
    TreeWindow.EndLabelEdit();
    // On for this one edit only, so that a click on a selected label never begins one.
    WinLib::AddStyle(TreeWindow, TVS_EDITLABELS);
    Select(item);
    // Windows edits labels only in a tree that has the focus.
    SetFocus(TreeWindow);
    TreeWindow.EditLabel(item);
}

void MainTreeController::AttachLabelEdit() {
    WinLib::Attach(LabelEdit, TreeWindow.LabelEdit());
}

bool MainTreeController::EndRename(const NMTVDISPINFOW& notification, LRESULT& result) {
    // Taking the style away makes the tree end the edit once more.
    if (LabelEdit.Handle == nullptr)
        return true;
    WinLib::Detach(LabelEdit);
    Command->EnableAccelerators();
    WinLib::RemoveStyle(TreeWindow, TVS_EDITLABELS);
    const TVITEMW& edited = notification.item;
    if (edited.pszText == nullptr)
        return true;
    TreeWindow.SetText(edited.hItem, edited.pszText);
    Command->RenamePreset(edited.hItem, edited.pszText);
    result = 1;
    return true;
}

bool MainTreeController::HandleRButtonDown(int x, int y, WPARAM) {
    const TVHITTESTINFO hit = TreeWindow.HitTest(x, y);
    if (hit.flags & (TVHT_ONITEMICON | TVHT_ONITEMLABEL | TVHT_ONITEMBUTTON | TVHT_ONITEMSTATEICON)) {
        Select(hit.hItem);
        Command->ShowPage(hit.hItem);
    }
    return true;
}

bool MainTreeController::HandleRButtonUp(int x, int y, WPARAM) {
    POINT point = {x, y};
    ClientToScreen(TreeWindow, &point);
    if (WindowFromPoint(point) != TreeWindow)
        return true;
    const HTREEITEM selected = SelectedItem();
    WinLib::UniqueHandle<HMENU> menu = MakeTreeMenu(ItemKindOf(selected) == ItemKind::Preset);
    const auto bits = static_cast<UINT>(
        TrackPopupMenu(menu.get(), TPM_RETURNCMD | TPM_NONOTIFY, point.x, point.y, 0, TreeWindow, nullptr));
    menu.reset();
    RunContextCommand(bits, selected);
    return true;
}

// The handlers of the left button and of moves leave their messages to the tree, too.
bool MainTreeController::HandleLButtonDown(int x, int y, WPARAM) {
    const HTREEITEM item = TreeWindow.HitTest(x, y).hItem;
    if (ItemKindOf(item) == ItemKind::Preset)
        Drag.Press(item, x, y);
    return false;
}

bool MainTreeController::HandleMouseMove(int x, int y, WPARAM keys) {
    if (Drag.Move(x, y, keys))
        Drag.Mark(DropTarget(x, y));
    return false;
}

bool MainTreeController::HandleLButtonUp(int x, int y, WPARAM) {
    if (const HTREEITEM dragged = Drag.Release())
        Drop(dragged, DropTarget(x, y));
    return false;
}

void MainTreeController::Drop(HTREEITEM dragged, HTREEITEM target) {
    if (target == nullptr || target == dragged)
        return;
    Drag.Drop(dragged, target);
    std::vector<uint32_t> ids;
    for (const HTREEITEM item : TreeWindow.Children(TVI_ROOT))
        ids.push_back(ItemId(item));
    Command->ReorderPresets(ids);
}

HTREEITEM MainTreeController::DropTarget(int x, int y) const {
    return PresetItemOf(TreeWindow.HitTest(x, y).hItem);
}

void MainTreeController::RunContextCommand(UINT bits, HTREEITEM selected) {
    if (bits & ContextTemplateBit)
        Command->NewFromTemplate(bits & (ContextTemplateBit - 1));
    else if (const CommandRow* command = FindContextCommand(bits))
        command->run({GetParent(TreeWindow), *Command, *this, selected});
}
