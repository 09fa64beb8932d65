#include "pages/FilterController.h"

#include "resources/resource.h"
#include "settings/SearchFilters.h"
#include "winlib/Exception.h"
#include "winlib/Focus.h"
#include "winlib/FolderPicker.h"
#include "winlib/TabOrder.h"

#include <algorithm>

using WinLib::Layout::Alignment;
using WinLib::Layout::HStack;
using WinLib::Layout::VStack;

namespace {

constexpr int CustomFilter = static_cast<int>(SearchFilters.size()) - 1;
constexpr int EntryCapacity = 512;

}  // namespace

FilterController::FilterController(MetaTypes::Settings* target)
    : PropertyController(target, {}, IDC_FILTER_GROUP) {}

void FilterController::PrepareControls() {
    const HWND list = Control(IDC_FILTER_EXCLUDED);
    ShowWindow(Control(IDC_FILTER_PATTERN_CAPTION), SW_HIDE);
    EnableWindow(Control(IDC_FILTER_REMOVE), FALSE);
    ThemedControls.push_back(list);
    for (const SearchFilter& filter : SearchFilters)
        SendMessageW(Control(IDC_FILTER_TYPE), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(filter.label));

    SendMessageW(list, LVM_SETEXTENDEDLISTVIEWSTYLE, LVS_EX_FULLROWSELECT, LVS_EX_FULLROWSELECT);
    wchar_t noText[] = L"";
    LVCOLUMNW column = {};
    column.mask = LVCF_TEXT | LVCF_WIDTH;
    column.pszText = noText;
    column.cx = 10;
    const auto header = reinterpret_cast<HWND>(SendMessageW(list, LVM_GETHEADER, 0, 0));
    const LRESULT count = SendMessageW(header, HDM_GETITEMCOUNT, 0, 0);
    if (SendMessageW(list, LVM_INSERTCOLUMNW, static_cast<WPARAM>(count), reinterpret_cast<LPARAM>(&column)) <
        0)
        throw WinLib::Exception(L"Unable to add a new column to the ListView.");
    FitColumn();
    SendMessageW(list, CCM_SETUNICODEFORMAT, TRUE, 0);
    WinLib::PutLast(Handle, {IDC_FILTER_ADD});
}

void FilterController::BuildLayout(VStack& page) {
    page.AddWindow(0, Control(IDC_FILTER_TYPE_CAPTION), Alignment::Near, Alignment::Center);
    page.AddWindow(0, Control(IDC_FILTER_TYPE), Alignment::Fill, Alignment::Center);
    page.AddWindow(0, Control(IDC_FILTER_PATTERN), Alignment::Fill, Alignment::Center);
    page.AddWindow(0, Control(IDC_FILTER_HINT), Alignment::Near, Alignment::Center);
    page.AddSpacer(0, 4);
    page.AddWindow(0, Control(IDC_FILTER_EXCLUDED_CAPTION), Alignment::Near, Alignment::Center);
    page.AddWindow(1, Control(IDC_FILTER_EXCLUDED), Alignment::Fill, Alignment::Fill);
    HStack* const buttons = page.AddHStack(0, {}, 8);
    buttons->AddSpacer(1, 0);
    buttons->AddWindow(0, Control(IDC_FILTER_REMOVE), Alignment::Far, Alignment::Center);
    buttons->AddWindow(0, Control(IDC_FILTER_ADD), Alignment::Far, Alignment::Center);
}

void FilterController::Refresh() {
    const Preset& preset = TargetPreset();
    const int filter = std::clamp(preset.Get(Filter::PresetSearchPattern), 0, CustomFilter);
    SendMessageW(Control(IDC_FILTER_TYPE), CB_SETCURSEL, static_cast<WPARAM>(filter), 0);
    for (const std::wstring& folder : preset.Get(Filter::ExcludedFolders))
        AppendFolder(folder);
    ApplySelectedFilter();
}

// The edit control shows the pattern of the selected filter. Only that of the last one, the preset's own, can
// be edited.
void FilterController::ApplySelectedFilter() {
    Preset& preset = TargetPreset();
    const int filter = SelectedFilter();
    std::wstring pattern = SearchFilters[static_cast<size_t>(filter)].pattern;
    if (pattern.empty())
        pattern = preset.Get(Filter::CustomSearchPattern);
    SetWindowTextW(Control(IDC_FILTER_PATTERN), pattern.c_str());
    WinLib::EnableControl(Control(IDC_FILTER_PATTERN), filter == CustomFilter, Control(IDC_FILTER_TYPE));
    preset.Get(Filter::PresetSearchPattern) = filter;
    preset.Save();
}

int FilterController::SelectedFilter() const {
    return static_cast<int>(SendMessageW(Control(IDC_FILTER_TYPE), CB_GETCURSEL, 0, 0));
}

bool FilterController::OnSelectionChanged(WORD id) {
    if (id != IDC_FILTER_TYPE)
        return false;
    ApplySelectedFilter();
    return true;
}

bool FilterController::OnTextChanged(WORD id) {
    if (id != IDC_FILTER_PATTERN)
        return false;
    if (SelectedFilter() == CustomFilter) {
        TargetPreset().Get(Filter::CustomSearchPattern) = WinLib::GetWindowText(Control(IDC_FILTER_PATTERN));
        TargetPreset().Save();
    }
    return true;
}

bool FilterController::OnClicked(WORD id) {
    switch (id) {
        case IDC_FILTER_ADD:
            AddFolder();
            return true;
        case IDC_FILTER_REMOVE:
            RemoveFolder();
            return true;
        default:
            return false;
    }
}

void FilterController::AddFolder() {
    const int selected = SelectedFolder();
    const std::wstring start = selected >= 0 ? FolderText(selected) : std::wstring();
    if (const auto folder = WinLib::PickFolder(Handle, L"Specify a folder to exclude",
                                               selected >= 0 ? start.c_str() : nullptr)) {
        AppendFolder(*folder);
        StoreFolders();
    }
}

void FilterController::RemoveFolder() {
    const int selected = SelectedFolder();
    if (selected >= 0)
        SendMessageW(Control(IDC_FILTER_EXCLUDED), LVM_DELETEITEM, static_cast<WPARAM>(selected), 0);
    EnableRemove(false);
    StoreFolders();
}

void FilterController::EnableRemove(bool enable) {
    WinLib::EnableControl(Control(IDC_FILTER_REMOVE), enable, Control(IDC_FILTER_EXCLUDED));
}

void FilterController::AppendFolder(const std::wstring& folder) {
    const HWND list = Control(IDC_FILTER_EXCLUDED);
    LVITEMW item = {};
    item.mask = LVIF_TEXT;
    item.iItem = static_cast<int>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0));
    item.pszText = const_cast<wchar_t*>(folder.c_str());
    if (SendMessageW(list, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item)) < 0)
        throw WinLib::Exception(L"Unable to add a new item to the ListView.");
}

void FilterController::StoreFolders() {
    const auto count = static_cast<int>(SendMessageW(Control(IDC_FILTER_EXCLUDED), LVM_GETITEMCOUNT, 0, 0));
    std::vector<std::wstring> folders;
    for (int i = 0; i < count; ++i)
        folders.push_back(FolderText(i));
    TargetPreset().Get(Filter::ExcludedFolders) = std::move(folders);
    TargetPreset().Save();
    StorePending = false;
}

int FilterController::SelectedFolder() const {
    return static_cast<int>(
        SendMessageW(Control(IDC_FILTER_EXCLUDED), LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED));
}

std::wstring FilterController::FolderText(int index) const {
    wchar_t text[EntryCapacity] = {};
    LVITEMW item = {};
    item.pszText = text;
    item.cchTextMax = EntryCapacity;
    SendMessageW(Control(IDC_FILTER_EXCLUDED), LVM_GETITEMTEXTW, static_cast<WPARAM>(index),
                 reinterpret_cast<LPARAM>(&item));
    return text;
}

// Makes entries as wide as the list.
void FilterController::FitColumn() {
    SendMessageW(Control(IDC_FILTER_EXCLUDED), LVM_SETCOLUMNWIDTH, 0, LVSCW_AUTOSIZE_USEHEADER);
}

bool FilterController::HandleSize(WORD type, WORD width, WORD height) {
    const bool arranged = PropertyController::HandleSize(type, width, height);
    FitColumn();
    return arranged;
}

// Ignores notifications of the in-place edit control: its id may equal that of a control of the page.
bool FilterController::OnControlCommand(WORD id, HWND control, WORD code) {
    if (LabelEdit != nullptr && control == LabelEdit)
        return true;
    return PropertyController::OnControlCommand(id, control, code);
}

bool FilterController::HandleNotify(NMHDR& header, LRESULT& result) {
    switch (header.code) {
        case LVN_ITEMCHANGED:
            return HandleItemChanged(header, result);
        case LVN_BEGINLABELEDITW:
            return HandleBeginLabelEdit(header, result);
        case LVN_ENDLABELEDITW:
            return HandleEndLabelEdit(header, result);
        default:
            return false;
    }
}

bool FilterController::HandleItemChanged(NMHDR&, LRESULT& result) {
    FitColumn();
    EnableRemove(SelectedFolder() >= 0);
    if (StorePending)
        StoreFolders();
    result = 0;
    return true;
}

bool FilterController::HandleBeginLabelEdit(NMHDR&, LRESULT& result) {
    LabelEdit = reinterpret_cast<HWND>(SendMessageW(Control(IDC_FILTER_EXCLUDED), LVM_GETEDITCONTROL, 0, 0));
    result = FALSE;
    return true;
}

// The list sets the new text after this returns, and then sends LVN_ITEMCHANGED.
bool FilterController::HandleEndLabelEdit(NMHDR&, LRESULT& result) {
    LabelEdit = nullptr;
    StorePending = true;
    result = TRUE;
    return true;
}
