#include "pages/OpeningController.h"

#include "resources/resource.h"
#include "winlib/Exception.h"

#include <commdlg.h>

#include <array>
#include <optional>
#include <string>

using WinLib::Layout::VStack;

namespace {

constexpr Binding Bindings[] = {
    RadioButton<Opening::OpenMethod, OpenMethod::Default, OpenMethod::Nothing, OpenMethod::Custom>(
        IDC_OPENING_DEFAULT),
    RadioButton<Opening::OpenMethod, OpenMethod::Nothing>(IDC_OPENING_NOTHING),
    RadioButton<Opening::OpenMethod, OpenMethod::Custom>(IDC_OPENING_CUSTOM),
    TextField<Opening::CustomProgramPath>(IDC_OPENING_PATH),
};

// Returns nothing if the user cancels.
std::optional<std::wstring> PickProgram(HWND owner) {
    std::array<wchar_t, 1024> path = {};
    OPENFILENAMEW dialog = {};
    dialog.lStructSize = sizeof(dialog);
    dialog.hwndOwner = owner;
    dialog.lpstrFilter =
        L"Program files (*.exe, *.bat)\0*.exe;*.bat\0"
        L"All files (*.*)\0*.*\0";
    dialog.nFilterIndex = 1;
    dialog.lpstrFile = path.data();
    dialog.nMaxFile = static_cast<DWORD>(path.size());
    dialog.lpstrTitle = L"Select program";
    dialog.Flags = OFN_EXPLORER | OFN_FILEMUSTEXIST | OFN_HIDEREADONLY;
    if (GetOpenFileNameW(&dialog))
        return path.data();
    if (CommDlgExtendedError() != 0)
        throw WinLib::Exception(L"Error in open file dialog.");
    return std::nullopt;
}

}  // namespace

OpeningController::OpeningController(MetaTypes::Settings* target)
    : PropertyController(target, Bindings, IDC_OPENING_GROUP) {}

PathChoice OpeningController::Choice() const {
    return {{Control(IDC_OPENING_DEFAULT), Control(IDC_OPENING_NOTHING), Control(IDC_OPENING_CUSTOM)},
            Control(IDC_OPENING_PATH),
            Control(IDC_OPENING_BROWSE)};
}

void OpeningController::BuildLayout(VStack& page) {
    Choice().AddTo(page);
}

void OpeningController::Refresh() {
    ShowBindings();
    UpdateControls();
}

void OpeningController::UpdateControls() {
    Choice().EnablePath(static_cast<uint32_t>(TargetPreset().Get(Opening::OpenMethod)));
}

bool OpeningController::OnClicked(WORD id) {
    if (id != IDC_OPENING_BROWSE)
        return false;
    if (const auto program = PickProgram(Handle))
        SetWindowTextW(Control(IDC_OPENING_PATH), program->c_str());
    return true;
}
