// The dialog of the two options of the application. Changes take effect at once; the result of the dialog is
// not used.
#pragma once

#include "settings/MainSettings.h"
#include "winlib/MenuDialog.h"
#include "winlib/layout/Overlapped.h"

class OptionsController : public WinLib::Dialog::MenuDialog {
public:
    // settings is not owned.
    explicit OptionsController(MainSettings* settings) : Settings(settings) {}

    bool HandleInitDialog(HWND focus, LPARAM parameter, bool& focusSet) override;

protected:
    bool OnClicked(WORD id) override;

private:
    void SwitchContextMenu();
    void StoreConfirmExit();
    void BuildLayout();

    MainSettings* Settings;
    WinLib::Layout::Overlapped RootSizer;
    HWND SeparatorLine = nullptr;
    HWND ConfirmExitCheck = nullptr;
    HWND ContextMenuCheck = nullptr;
    HWND CloseButton = nullptr;
};
