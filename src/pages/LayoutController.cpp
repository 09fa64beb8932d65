#include "pages/LayoutController.h"

#include "resources/resource.h"
#include "winlib/Focus.h"
#include "winlib/TabOrder.h"

#include <array>
#include <string>

using WinLib::Layout::Alignment;
using WinLib::Layout::HStack;
using WinLib::Layout::VStack;

namespace {

constexpr Binding Bindings[] = {
    CheckBox<Display::SearchSubfolders>(IDC_DISPLAY_SUBFOLDERS),
    CheckBox<Display::SearchHidden>(IDC_DISPLAY_HIDDEN),
    CheckBox<Display::ShowStatistics>(IDC_DISPLAY_STATISTICS),
};

// The index is the value of SizeStyle.
constexpr std::array<const wchar_t*, 7> SizeStyleLabels = {
    L"Dynamic (x.x Bytes/KiB/MiB/GiB/TiB)",
    L"Dynamic (x Bytes/KiB/MiB/GiB/TiB)",
    L"Bytes (x Bytes)",
    L"KiB (x.x KiB)",
    L"MiB (x.x MiB)",
    L"GiB (x.x GiB)",
    L"TiB (x.x TiB)",
};

constexpr int MaximumIndent = 40;

// Disabled for a list without grouping.
constexpr int IndentControls[] = {IDC_DISPLAY_INDENT, IDC_DISPLAY_INDENT_CAPTION, IDC_DISPLAY_INDENT_VALUE};

}  // namespace

LayoutController::LayoutController(MetaTypes::Settings* target)
    : PropertyController(target, Bindings, IDC_DISPLAY_GROUP) {}

void LayoutController::PrepareControls() {
    const HWND sizeStyle = Control(IDC_DISPLAY_SIZE_STYLE);
    for (const wchar_t* const label : SizeStyleLabels)
        SendMessageW(sizeStyle, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(label));
    SendMessageW(Control(IDC_DISPLAY_INDENT), TBM_SETRANGE, TRUE, MAKELPARAM(0, MaximumIndent));
    ThemedControls.push_back(Control(IDC_DISPLAY_INDENT));
    // As they are read. A screen reader takes the text directly before the trackbar for its name.
    WinLib::PutLast(Handle, {IDC_DISPLAY_STATISTICS, IDC_DISPLAY_HIDDEN, IDC_DISPLAY_SUBFOLDERS,
                             IDC_DISPLAY_GROUPED, IDC_DISPLAY_INDENT_VALUE, IDC_DISPLAY_INDENT_CAPTION,
                             IDC_DISPLAY_INDENT, IDC_DISPLAY_SIZE_CAPTION, IDC_DISPLAY_SIZE_STYLE});
}

void LayoutController::BuildLayout(VStack& page) {
    // Not the order of the resource.
    for (const int id :
         {IDC_DISPLAY_STATISTICS, IDC_DISPLAY_HIDDEN, IDC_DISPLAY_SUBFOLDERS, IDC_DISPLAY_GROUPED})
        page.AddWindow(0, Control(id), Alignment::Near, Alignment::Center);

    HStack* const indentText = page.AddHStack(0, {}, 0);
    indentText->AddSpacer(0, 20);
    indentText->AddWindow(0, Control(IDC_DISPLAY_INDENT_CAPTION), Alignment::Near, Alignment::Center);
    indentText->AddWindow(0, Control(IDC_DISPLAY_INDENT_VALUE), Alignment::Near, Alignment::Center);
    indentText->AddSpacer(0, 20);

    HStack* const indent = page.AddHStack(0, {}, 0);
    indent->AddSpacer(0, 12);
    indent->AddWindow(1, Control(IDC_DISPLAY_INDENT), Alignment::Fill, Alignment::Center);
    indent->AddSpacer(0, 12);

    page.AddSpacer(0, 4);
    page.AddWindow(0, Control(IDC_DISPLAY_SIZE_CAPTION), Alignment::Near, Alignment::Center);
    page.AddWindow(0, Control(IDC_DISPLAY_SIZE_STYLE), Alignment::Fill, Alignment::Center);
}

void LayoutController::Refresh() {
    ShowBindings();
    const Preset& preset = TargetPreset();
    const auto style = static_cast<size_t>(preset.Get(Display::SizeStyle));
    SendMessageW(Control(IDC_DISPLAY_SIZE_STYLE), CB_SETCURSEL, style < SizeStyleLabels.size() ? style : 0,
                 0);
    if (!preset.Get(Display::ShowFlatStyle))
        Check(Control(IDC_DISPLAY_GROUPED));
    const auto indent = static_cast<LPARAM>(preset.Get(Display::IndentSize));
    SendMessageW(Control(IDC_DISPLAY_INDENT), TBM_SETPOS, TRUE, indent);
    ApplyIndent();
    ApplyGrouping();
}

bool LayoutController::OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    switch (message) {
        case WM_HSCROLL:
            return Handler<WM_HSCROLL>::Dispatch(wParam, lParam, result);
        default:
            return PropertyController::OnMessage(message, wParam, lParam, result);
    }
}

bool LayoutController::HandleHScroll(WORD, WORD, HWND control) {
    if (control != Control(IDC_DISPLAY_INDENT))
        return false;
    ApplyIndent();
    return true;
}

bool LayoutController::OnClicked(WORD id) {
    if (id != IDC_DISPLAY_GROUPED)
        return false;
    ApplyGrouping();
    return true;
}

bool LayoutController::OnSelectionChanged(WORD id) {
    if (id != IDC_DISPLAY_SIZE_STYLE)
        return false;
    const LRESULT index = SendMessageW(Control(IDC_DISPLAY_SIZE_STYLE), CB_GETCURSEL, 0, 0);
    if (index >= 0 && index < static_cast<LRESULT>(SizeStyleLabels.size())) {
        TargetPreset().Get(Display::SizeStyle) = static_cast<SizeStyle>(index);
        TargetPreset().Save();
    }
    return true;
}

void LayoutController::ApplyGrouping() {
    const bool grouped = IsChecked(Control(IDC_DISPLAY_GROUPED));
    for (const int id : IndentControls)
        WinLib::EnableControl(Control(id), grouped, Control(IDC_DISPLAY_GROUPED));
    TargetPreset().Get(Display::ShowFlatStyle) = !grouped;
    TargetPreset().Save();
}

void LayoutController::ApplyIndent() {
    const LRESULT position = SendMessageW(Control(IDC_DISPLAY_INDENT), TBM_GETPOS, 0, 0);
    SetWindowTextW(Control(IDC_DISPLAY_INDENT_VALUE), std::to_wstring(position).c_str());
    TargetPreset().Get(Display::IndentSize) = static_cast<uint32_t>(position);
    TargetPreset().Save();
}
