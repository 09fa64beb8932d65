// The page of instructions, shown while there is no preset.
#pragma once

#include "winlib/Controller.h"
#include "winlib/layout/Overlapped.h"

class ManageController : public WinLib::Dialog::Controller, public WinLib::Handlers::Handler<WM_SIZE> {
public:
    bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    bool HandleInitDialog(HWND focus, LPARAM parameter, bool& focusSet) override;
    bool HandleSize(WORD type, WORD width, WORD height) override;

private:
    WinLib::Layout::Overlapped RootSizer;
};
