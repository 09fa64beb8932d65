// The dialog of the two options of the application. Changes take effect at once; the result of the dialog is
// not used.
#pragma once

#include "settings/MainSettings.h"
#include "winlib/Controller.h"
#include "winlib/layout/Overlapped.h"

class OptionsController : public WinLib::Dialog::ModalController,
                          public WinLib::Handlers::Handler<WM_SYSCOLORCHANGE>,
                          public WinLib::Handlers::Handler<WM_CLOSE> {
public:
    // settings is not owned.
    explicit OptionsController(MainSettings* settings) : Settings(settings) {}

    bool OnMenuCommand(WORD id) override;
    bool OnControlCommand(WORD id, HWND control, WORD code) override;
    bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    bool HandleInitDialog(HWND focus, LPARAM parameter, bool& focusSet) override;
    bool HandleSysColorChange() override { return false; }
    bool HandleClose() override;

private:
    bool OnClicked(WORD id);
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
