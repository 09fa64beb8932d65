// The tree of presets at the left of the main window: each preset is a top-level item with six children, one
// for each further page. It maps items to ids, edits labels, shows the context menu and moves presets by drag
// and drop. Knows neither presets nor pages: it calls ICommand for what an action does to them.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "app/Commands.h"
#include "app/ICommand.h"
#include "app/PresetDrag.h"
#include "winlib/Controller.h"
#include "winlib/controls/EditLabelCtrl.h"
#include "winlib/controls/Tree.h"

enum class ItemKind : uint32_t {
    Preset = 1,
    Page = 2,
};

struct ItemInfo {
    ItemKind kind;
    uint32_t id;  // never used twice within a run, and never stored
};

class MainTreeController : public WinLib::Window::Controller,
                           public ILabelEditor,
                           private WinLib::Handlers::Handler<WM_RBUTTONDOWN>,
                           private WinLib::Handlers::Handler<WM_RBUTTONUP>,
                           private WinLib::Handlers::Handler<WM_LBUTTONDOWN>,
                           private WinLib::Handlers::Handler<WM_LBUTTONUP>,
                           private WinLib::Handlers::Handler<WM_MOUSEMOVE> {
public:
    // command must outlive this object. REQUIRES: the process's Application, whose module holds the icons.
    explicit MainTreeController(ICommand& command);

    void OnAttach() override;
    bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;

    // Appends a collapsed preset item with its six children. itemOut takes the preset's item, idsOut is
    // appended the seven ids, the preset's own first.
    void AddItems(HTREEITEM& itemOut, const std::wstring& name, std::vector<uint32_t>& idsOut);

    // Return the id and the kind of an item; 0 and nothing for a null item and one that was taken out.
    uint32_t ItemId(HTREEITEM item) const;
    std::optional<ItemKind> ItemKindOf(HTREEITEM item) const;

    // Removes the item from the map and returns its entry. The item stays in the tree; a drag of it ends.
    std::optional<ItemInfo> TakeItem(HTREEITEM item);

    // Takes an item with its children and removes them from the tree. Returns their ids in tree order.
    std::vector<uint32_t> RemoveItems(HTREEITEM item);

    // Returns the item itself if it is that of a preset, its parent if it is that of a page; otherwise null.
    HTREEITEM PresetItemOf(HTREEITEM item) const;

    // Return the selected item and the topmost preset, or null.
    HTREEITEM SelectedItem() const;
    HTREEITEM FirstItem() const;

    void Select(HTREEITEM item) const;

    // Selects a preset item and opens its label for editing. Does nothing with any other item.
    void BeginRename(HTREEITEM item) override;

    // Takes over the edit box when a label edit begins, and finishes the edit: result becomes 1 if the new
    // name was taken.
    void AttachLabelEdit();
    bool EndRename(const NMTVDISPINFOW& notification, LRESULT& result);

private:
    bool HandleRButtonDown(int x, int y, WPARAM keys) override;
    bool HandleRButtonUp(int x, int y, WPARAM keys) override;
    bool HandleLButtonDown(int x, int y, WPARAM keys) override;
    bool HandleLButtonUp(int x, int y, WPARAM keys) override;
    bool HandleMouseMove(int x, int y, WPARAM keys) override;

    std::optional<ItemInfo> InfoOf(HTREEITEM item) const;
    HTREEITEM InsertItem(HTREEITEM parent, const wchar_t* text, ItemKind kind, std::vector<uint32_t>& idsOut);
    void RunContextCommand(UINT bits, HTREEITEM selected);

    // Returns the preset item under the mouse, or null.
    HTREEITEM DropTarget(int x, int y) const;

    // Moves a preset below another and reports the new order. Does nothing without a target or with itself.
    void Drop(HTREEITEM dragged, HTREEITEM target);

    std::map<uint32_t, ItemInfo> Items;
    ICommand* Command;
    WinLib::Controls::Tree TreeWindow;
    PresetDrag Drag;
    WinLib::EditLabelCtrl LabelEdit;
};
