#include "pages/FormatController.h"

#include "resources/resource.h"

using WinLib::Layout::Alignment;
using WinLib::Layout::VStack;

namespace {

constexpr Binding Bindings[] = {
    RadioButton<Format::ListStyle, ListStyle::Text, ListStyle::Html>(IDC_FORMAT_TEXT),
    RadioButton<Format::ListStyle, ListStyle::Html>(IDC_FORMAT_HTML),
    CheckBox<Format::EnableUtf8>(IDC_FORMAT_UTF8),
};

}  // namespace

FormatController::FormatController(MetaTypes::Settings* target)
    : PropertyController(target, Bindings, IDC_FORMAT_GROUP) {}

void FormatController::Refresh() {
    ShowBindings();
}

void FormatController::BuildLayout(VStack& page) {
    page.AddWindow(0, Control(IDC_FORMAT_CAPTION), Alignment::Near, Alignment::Center);
    for (const int id : {IDC_FORMAT_TEXT, IDC_FORMAT_HTML}) {
        WinLib::Layout::HStack* const row = page.AddHStack(0, {}, 0);
        row->AddSpacer(0, 20);
        row->AddWindow(0, Control(id), Alignment::Near, Alignment::Center);
    }
    page.AddSpacer(0, 4);
    page.AddWindow(0, Control(IDC_FORMAT_UTF8), Alignment::Near, Alignment::Center);
}
