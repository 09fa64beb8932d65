#include "OpenPage.h"

#include "pages/ColumnsController.h"
#include "pages/FilterController.h"
#include "pages/FormatController.h"
#include "pages/LayoutController.h"
#include "pages/OpeningController.h"
#include "pages/SavingController.h"
#include "pages/SortingController.h"
#include "resources/resource.h"
#include "winlib/ParentCoordinates.h"

namespace {

template <class Page>
std::unique_ptr<PropertyController> Make(MetaTypes::Settings* target) {
    return std::make_unique<Page>(target);
}

}  // namespace

namespace Kind {
const PageKind Format = {"Format", IDD_FORMAT, IDC_FORMAT_GROUP, Make<FormatController>};
const PageKind Display = {"Display", IDD_DISPLAY, IDC_DISPLAY_GROUP, Make<LayoutController>};
const PageKind Filter = {"Filter", IDD_FILTER, IDC_FILTER_GROUP, Make<FilterController>};
const PageKind Columns = {"Columns", IDD_COLUMNS, IDC_COLUMNS_GROUP, Make<ColumnsController>};
const PageKind Sorting = {"Sorting", IDD_SORTING, IDC_SORTING_GROUP, Make<SortingController>};
const PageKind Saving = {"Saving", IDD_SAVING, IDC_SAVING_GROUP, Make<SavingController>};
const PageKind Opening = {"Opening", IDD_OPENING, IDC_OPENING_GROUP, Make<OpeningController>};
}  // namespace Kind

const PageKind* const AllPages[7] = {&Kind::Format,  &Kind::Display, &Kind::Filter, &Kind::Columns,
                                     &Kind::Sorting, &Kind::Saving,  &Kind::Opening};

std::unique_ptr<Preset> LoadPreset() {
    auto preset = std::make_unique<Preset>(PresetKey.substr(PresetKey.rfind(L'\\') + 1));
    preset->Load();
    return preset;
}

OpenPage::OpenPage(const PageKind& kind) : page(kind.make(preset.get())) {
    WinLib::CreateModeless(host_.Application, window, *page, kind.dialog, host_.Handle,
                           host_.Application.Instance);
    page->Refresh();
    ShowWindow(window, SW_SHOW);
}

OpenPage::~OpenPage() {
    DestroyWindow(window);
}

std::wstring OpenPage::Text(int id) const {
    return WinLib::GetWindowText(Control(id));
}

RECT OpenPage::Place(int id) const {
    return WinLib::RectInParent(Control(id));
}

void OpenPage::Resize(int width, int height) const {
    MoveWindow(window, 0, 0, width, height, TRUE);
}

std::vector<std::wstring> OpenPage::Entries(int id) const {
    std::vector<std::wstring> entries;
    const LRESULT count = SendMessageW(Control(id), CB_GETCOUNT, 0, 0);
    for (LRESULT i = 0; i < count; ++i) {
        wchar_t text[256] = {};
        SendMessageW(Control(id), CB_GETLBTEXT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(text));
        entries.push_back(text);
    }
    return entries;
}

void OpenPage::Choose(int id, int entry) {
    Focus(id);
    Ui::TypeKeys(pump, {VK_HOME});
    for (int i = 0; i < entry; ++i)
        Ui::TypeKeys(pump, {VK_DOWN});
}
