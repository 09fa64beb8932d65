#include "pages/ManageController.h"

#include "pages/GroupBox.h"
#include "resources/resource.h"
#include "winlib/layout/ClientArea.h"

using WinLib::Layout::Alignment;
using WinLib::Layout::VStack;

bool ManageController::OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    switch (message) {
        case WM_SIZE:
            return Handler<WM_SIZE>::Dispatch(wParam, lParam, result);
        default:
            return Controller::OnMessage(message, wParam, lParam, result);
    }
}

bool ManageController::HandleInitDialog(HWND, LPARAM, bool&) {
    VStack& page = AddGroupBox(RootSizer, GetDlgItem(Handle, IDC_MANAGE_GROUP));
    VStack* const texts = page.AddVStack(4, {}, 8);
    texts->AddSpacer(2, 0);
    for (const int id : {IDC_MANAGE_CREATE, IDC_MANAGE_DUPLICATE, IDC_MANAGE_REARRANGE})
        texts->AddWindow(0, GetDlgItem(Handle, id), Alignment::Center, Alignment::Center);
    texts->AddSpacer(3, 0);
    page.AddSpacer(1, 8);
    MeasureAndArrange(RootSizer, Handle);
    return true;
}

bool ManageController::HandleSize(WORD type, WORD, WORD) {
    return ArrangeOnSize(RootSizer, Handle, type);
}
