#include "pages/SavingController.h"

#include "resources/resource.h"
#include "winlib/FolderPicker.h"

using WinLib::Layout::Alignment;
using WinLib::Layout::VStack;

namespace {

constexpr Binding Bindings[] = {
    RadioButton<Saving::SaveLocation, SaveLocation::Temporary, SaveLocation::SamePath, SaveLocation::Custom>(
        IDC_SAVING_TEMPORARY),
    RadioButton<Saving::SaveLocation, SaveLocation::SamePath>(IDC_SAVING_SAME_PATH),
    RadioButton<Saving::SaveLocation, SaveLocation::Custom>(IDC_SAVING_CUSTOM),
    TextField<Saving::CustomFolderPath>(IDC_SAVING_PATH),
    CheckBox<Saving::OverwriteExisting>(IDC_SAVING_OVERWRITE),
};

}  // namespace

SavingController::SavingController(MetaTypes::Settings* target)
    : PropertyController(target, Bindings, IDC_SAVING_GROUP) {}

PathChoice SavingController::Choice() const {
    return {{Control(IDC_SAVING_TEMPORARY), Control(IDC_SAVING_SAME_PATH), Control(IDC_SAVING_CUSTOM)},
            Control(IDC_SAVING_PATH),
            Control(IDC_SAVING_BROWSE)};
}

void SavingController::BuildLayout(VStack& page) {
    Choice().AddTo(page);
    page.AddSpacer(0, 4);
    page.AddWindow(0, Control(IDC_SAVING_OVERWRITE), Alignment::Near, Alignment::Center);
}

void SavingController::Refresh() {
    ShowBindings();
    UpdateControls();
}

void SavingController::UpdateControls() {
    Choice().EnablePath(static_cast<uint32_t>(TargetPreset().Get(Saving::SaveLocation)));
}

bool SavingController::OnClicked(WORD id) {
    if (id != IDC_SAVING_BROWSE)
        return false;
    const HWND path = Control(IDC_SAVING_PATH);
    const std::wstring start = WinLib::GetWindowText(path);
    if (const auto folder =
            WinLib::PickFolder(Handle, L"Specify a save folder", start.empty() ? nullptr : start.c_str()))
        SetWindowTextW(path, folder->c_str());
    return true;
}
