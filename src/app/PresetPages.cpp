#include "app/PresetPages.h"

#include <array>

#include "pages/ColumnsController.h"
#include "pages/FilterController.h"
#include "pages/FormatController.h"
#include "pages/LayoutController.h"
#include "pages/OpeningController.h"
#include "pages/SavingController.h"
#include "pages/SortingController.h"
#include "resources/resource.h"
#include "winlib/Exception.h"

namespace {

struct Row {
    std::unique_ptr<PropertyController> (*make)(Preset& preset);
    int dialogId;
};

template <typename Page>
std::unique_ptr<PropertyController> Make(Preset& preset) {
    return std::make_unique<Page>(&preset);
}

constexpr std::array<Row, PagesPerPreset> Rows = {{
    {Make<FormatController>, IDD_FORMAT},    // the preset's own item
    {Make<LayoutController>, IDD_DISPLAY},   // "Display"
    {Make<FilterController>, IDD_FILTER},    // "Filter"
    {Make<ColumnsController>, IDD_COLUMNS},  // "Columns"
    {Make<SortingController>, IDD_SORTING},  // "Sorting"
    {Make<SavingController>, IDD_SAVING},    // "Saving"
    {Make<OpeningController>, IDD_OPENING},  // "Opening"
}};

}  // namespace

PresetPage MakePresetPage(size_t index, Preset& preset) {
    if (index >= Rows.size())
        throw WinLib::Exception(L"Unable to create window controllers.");
    return {Rows[index].make(preset), Rows[index].dialogId};
}
