// The presets in the tree with their pages, and what the commands do to them.

#include <typeinfo>

#include "app/MainController.h"
#include "app/Menus.h"
#include "app/PresetPages.h"
#include "listmaker/ListMakerWithUI.h"
#include "pages/ManageController.h"
#include "pages/PropertyController.h"
#include "settings/Templates.h"
#include "winlib/Application.h"

using WinLib::Layout::Alignment;

void MainController::AddPreset(HTREEITEM& itemOut, Preset& preset) {
    std::vector<uint32_t> ids;
    TreeController.AddItems(itemOut, preset.Get(Preset::Name), ids);
    for (size_t index = 0; index < ids.size(); index++)
        MakePage(ids[index], index, preset);
    OrderControls();
    ArrangeControls();
}

void MainController::MakePage(uint32_t id, size_t index, Preset& preset) {
    WinLib::Application& application = *WinLib::Application::Current();
    PresetPage page = MakePresetPage(index, preset);
    HWND window = nullptr;
    WinLib::CreateModeless(application, window, *page.controller, page.dialogId, Handle,
                           application.Instance);
    PageSizer->AddWindow(window, Alignment::Fill, Alignment::Fill);
    page.controller->Refresh();
    Pages[id] = std::move(page.controller);
}

PropertyController* MainController::PageOf(uint32_t id) const {
    const auto entry = Pages.find(id);
    return entry != Pages.end() ? entry->second.get() : nullptr;
}

Preset* MainController::PresetOf(uint32_t id) const {
    const PropertyController* page = PageOf(id);
    return page != nullptr ? &dynamic_cast<Preset&>(*page->Target) : nullptr;
}

std::optional<ItemKind> MainController::SelectedKind() const {
    return TreeController.ItemKindOf(TreeController.SelectedItem());
}

bool MainController::CanCreateList() const {
    return SelectedKind().has_value() && Lister == nullptr;
}

void MainController::UpdateControls() {
    if (TreeController.FirstItem() == nullptr)
        ShowWindow(ManagePage->Handle, SW_SHOW);
    else
        HidePage(ManagePage->Handle);

    // A tree without a selection selects an item when it gets the focus.
    if (!CanCreateList())
        TakeFocusFrom(CreateListButton);
    EnableWindow(CreateListButton, CanCreateList());

    EnablePresetCommands(MenuBar.get(), SelectedKind() == ItemKind::Preset);
}

void MainController::ShowPage(HTREEITEM item) {
    const PropertyController* page = PageOf(TreeController.ItemId(item));
    FocusLent = false;
    UpdateControls();
    if (page == nullptr || page->Handle == CurrentPage)
        return;
    // The new page first, or the empty background would flash up between the two.
    ShowWindow(page->Handle, SW_SHOW);
    UpdateWindow(page->Handle);
    if (CurrentPage != nullptr)
        HidePage(CurrentPage);
    CurrentPage = page->Handle;
}

void MainController::NewPreset() {
    Preset& preset = Settings.CreatePreset();
    preset.Get(Preset::Name) = L"New Preset";
    HTREEITEM item = nullptr;
    AddPreset(item, preset);
    TreeController.BeginRename(item);
    preset.Save();
    UpdateControls();
}

void MainController::NewFromTemplate(uint32_t index) {
    // A command from outside may carry any number.
    if (index >= TemplateCount)
        return;
    Preset& preset = Settings.CreateFromTemplate(index);
    HTREEITEM item = nullptr;
    AddPreset(item, preset);
    TreeController.Select(item);
    preset.Save();
    UpdateControls();
}

void MainController::DuplicatePreset(HTREEITEM item) {
    const Preset* source = PresetOf(TreeController.ItemId(item));
    if (source == nullptr)
        return;
    Preset& copy = Settings.CreatePreset();
    copy.Assign(*source);
    copy.Get(Preset::Name) = L"Copy of " + source->Get(Preset::Name);
    copy.Save();
    HTREEITEM copyItem = nullptr;
    AddPreset(copyItem, copy);
    UpdateControls();
}

void MainController::RemovePreset(HTREEITEM item) {
    const std::vector<uint32_t> ids = TreeController.RemoveItems(item);
    const Preset* preset = ids.empty() ? nullptr : PresetOf(ids.front());
    if (preset == nullptr)
        return;
    for (const uint32_t id : ids) {
        TakeFocusFrom(PageOf(id)->Handle);
        PageOf(id)->OnCancel();
        Pages.erase(id);
    }
    preset->DeleteKey();
    Settings.Remove(*preset);
    Settings.Renumber();
    UpdateControls();
}

void MainController::RenamePreset(HTREEITEM item, const std::wstring& text) {
    Preset* preset = PresetOf(TreeController.ItemId(item));
    if (preset == nullptr)
        return;
    preset->Get(Preset::Name) = text;
    preset->Save();
}

void MainController::ReorderPresets(const std::vector<uint32_t>& ids) {
    int32_t position = 1;
    for (auto id = ids.rbegin(); id != ids.rend(); ++id) {
        Preset* preset = PresetOf(*id);
        if (preset == nullptr)
            continue;
        preset->Get(Preset::Position) = position++;
        preset->Save();
    }
}
