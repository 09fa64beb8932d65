#include "pages/OptionsController.h"

#include "pages/Binding.h"
#include "resources/resource.h"
#include "winlib/TabOrder.h"
#include "winlib/layout/ClientArea.h"
#include "winlib/layout/Stack.h"

using WinLib::Layout::Alignment;
using WinLib::Layout::HStack;
using WinLib::Layout::VStack;

namespace {

constexpr wchar_t UnregisterFailed[] =
    L"Tamblewick was unable to unregister the context menu.\n"
    L"Please run the application with administrator privileges and try again.";
constexpr wchar_t RegisterFailed[] =
    L"Tamblewick was unable to register the context menu.\n"
    L"Please run the application with administrator privileges and try again.";

}  // namespace

bool OptionsController::HandleInitDialog(HWND, LPARAM, bool&) {
    SeparatorLine = GetDlgItem(Handle, IDC_OPTIONS_SEPARATOR);
    ConfirmExitCheck = GetDlgItem(Handle, IDC_OPTIONS_CONFIRM_EXIT);
    ContextMenuCheck = GetDlgItem(Handle, IDC_OPTIONS_CONTEXT_MENU);
    CloseButton = GetDlgItem(Handle, IDC_OPTIONS_CLOSE);
    BuildLayout();
    WinLib::PutLast(Handle, {IDC_OPTIONS_CONFIRM_EXIT, IDC_OPTIONS_CLOSE});
    if (Settings->Shell.IsRegistered())
        Check(ContextMenuCheck);
    if (Settings->Get(MainSettings::ConfirmExit))
        Check(ConfirmExitCheck);
    return true;
}

void OptionsController::BuildLayout() {
    VStack* const root = RootSizer.AddVStack({}, 0);
    VStack* const checks = root->AddVStack(0, {.left = 20, .top = 20, .right = 20}, 8);
    checks->AddWindow(0, ContextMenuCheck, Alignment::Near, Alignment::Center);
    checks->AddWindow(0, ConfirmExitCheck, Alignment::Near, Alignment::Center);
    root->AddSpacer(0, 16);
    root->AddWindow(0, SeparatorLine, Alignment::Fill, Alignment::Center);
    root->AddSpacer(0, 16);
    HStack* const buttons = root->AddHStack(0, {.left = 20, .right = 20}, 8);
    buttons->AddWindow(1, CloseButton, Alignment::Far, Alignment::Center);
    root->AddSpacer(0, 16);
    root->AddSpacer(1, 0);
    MeasureAndArrange(RootSizer, Handle);
}

bool OptionsController::OnClicked(WORD id) {
    switch (id) {
        case IDC_OPTIONS_CONTEXT_MENU:
            SwitchContextMenu();
            return true;
        case IDC_OPTIONS_CONFIRM_EXIT:
            StoreConfirmExit();
            return true;
        case IDC_OPTIONS_CLOSE:
            EndDialog(Handle, 1);
            return true;
        default:
            return false;
    }
}

// The result is read from the registry: the elevation may have been refused, or the module may be missing.
void OptionsController::SwitchContextMenu() {
    const bool wanted = IsChecked(ContextMenuCheck);
    const bool before = Settings->Shell.IsRegistered();
    if (before && !wanted)
        Settings->Shell.Unregister();
    else if (!before && wanted)
        Settings->Shell.Register();

    const bool now = Settings->Shell.IsRegistered();
    if (now == wanted)
        return;
    MessageBoxW(Handle, now ? UnregisterFailed : RegisterFailed, L"Tamblewick", MB_OK | MB_ICONEXCLAMATION);
    SendMessageW(ContextMenuCheck, BM_SETCHECK, now ? BST_CHECKED : BST_UNCHECKED, 0);
}

void OptionsController::StoreConfirmExit() {
    Settings->Get(MainSettings::ConfirmExit) = IsChecked(ConfirmExitCheck);
    Settings->SaveMain();
}
