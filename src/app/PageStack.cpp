#include "app/PageStack.h"

#include <array>

#include "app/FocusKeeper.h"
#include "pages/ColumnsController.h"
#include "pages/FilterController.h"
#include "pages/FormatController.h"
#include "pages/LayoutController.h"
#include "pages/ManageController.h"
#include "pages/OpeningController.h"
#include "pages/SavingController.h"
#include "pages/SortingController.h"
#include "resources/resource.h"
#include "winlib/Application.h"
#include "winlib/Exception.h"

using WinLib::Layout::Alignment;

namespace {

struct Row {
    std::unique_ptr<PropertyController> (*make)(Preset& preset);
    int dialogId;
};

template <typename Page>
std::unique_ptr<PropertyController> Make(Preset& preset) {
    return std::make_unique<Page>(&preset);
}

// In the order of a preset's items in the tree.
constexpr std::array<Row, PageStack::PagesPerPreset> Rows = {{
    {Make<FormatController>, IDD_FORMAT},    // the preset's own item
    {Make<LayoutController>, IDD_DISPLAY},   // "Display"
    {Make<FilterController>, IDD_FILTER},    // "Filter"
    {Make<ColumnsController>, IDD_COLUMNS},  // "Columns"
    {Make<SortingController>, IDD_SORTING},  // "Sorting"
    {Make<SavingController>, IDD_SAVING},    // "Saving"
    {Make<OpeningController>, IDD_OPENING},  // "Opening"
}};

// Creates the window of a page and adds it to the sizer.
HWND MakeWindow(WinLib::Dialog::Controller& page, int dialogId, HWND dialog,
                WinLib::Layout::Overlapped& sizer) {
    WinLib::Application& application = *WinLib::Application::Current();
    HWND window = nullptr;
    WinLib::CreateModeless(application, window, page, dialogId, dialog, application.Instance);
    sizer.AddWindow(window, Alignment::Fill, Alignment::Fill);
    return window;
}

}  // namespace

PageStack::PageStack(const FocusKeeper& focus) : focus_(focus) {}

PageStack::~PageStack() = default;

void PageStack::Attach(HWND dialog, WinLib::Layout::Overlapped& sizer) {
    dialog_ = dialog;
    PageSizer = &sizer;
    ManagePage = std::make_unique<ManageController>();
    ShowWindow(MakeWindow(*ManagePage, IDD_MANAGE, dialog_, *PageSizer), SW_SHOW);
}

void PageStack::Add(const std::vector<uint32_t>& ids, Preset& preset) {
    for (size_t index = 0; index < ids.size(); ++index)
        MakePage(ids[index], index, preset);
}

void PageStack::MakePage(uint32_t id, size_t index, Preset& preset) {
    if (index >= Rows.size())
        throw WinLib::Exception(L"Unable to create window controllers.");
    std::unique_ptr<PropertyController> page = Rows[index].make(preset);
    MakeWindow(*page, Rows[index].dialogId, dialog_, *PageSizer);
    page->Refresh();
    Pages[id] = std::move(page);
}

void PageStack::Remove(const std::vector<uint32_t>& ids) {
    for (const uint32_t id : ids) {
        const auto entry = Pages.find(id);
        focus_.TakeFrom(entry->second->Handle);
        entry->second->OnCancel();
        Pages.erase(entry);
    }
}

void PageStack::RemoveAll() {
    for (auto& [id, page] : Pages) {
        page->OnCancel();
        page.reset();
    }
    Pages.clear();
}

PropertyController* PageStack::PageOf(uint32_t id) const {
    const auto entry = Pages.find(id);
    return entry != Pages.end() ? entry->second.get() : nullptr;
}

Preset* PageStack::PresetOf(uint32_t id) const {
    const PropertyController* page = PageOf(id);
    return page != nullptr ? &dynamic_cast<Preset&>(*page->Target) : nullptr;
}

void PageStack::Show(uint32_t id) {
    const PropertyController* page = PageOf(id);
    if (page == nullptr || page->Handle == CurrentPage)
        return;
    // The new page first, or the empty background would flash up in between.
    ShowWindow(page->Handle, SW_SHOW);
    UpdateWindow(page->Handle);
    if (CurrentPage != nullptr)
        focus_.Hide(CurrentPage);
    CurrentPage = page->Handle;
}

void PageStack::ShowInstructions(bool show) const {
    if (show)
        ShowWindow(ManagePage->Handle, SW_SHOW);
    else
        focus_.Hide(ManagePage->Handle);
}

void PageStack::ForwardSysColorChange() const {
    for (const auto& [id, page] : Pages)
        SendMessageW(page->Handle, WM_SYSCOLORCHANGE, 0, 0);
}
