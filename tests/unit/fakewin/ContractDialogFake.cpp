#include "ContractDialog.h"
#include "fakewin/FakeWindows.h"

namespace ContractDialog {

void Define() {
    FakeWin::DefineDialog(TemplateId, {.caption = L"Contract",
                                       .size = {200, 80},
                                       .style = WS_POPUP | WS_CAPTION | WS_THICKFRAME | DS_CENTER,
                                       .controls = {{ButtonId, L"BUTTON", L"Press", {0, 0, 50, 20}},
                                                    {TextId, L"STATIC", L"Words", {0, 30, 50, 40}}}});
}

HWND MakeOwner() {
    return FakeWin::CreatePlainWindow(L"Owner");
}

}  // namespace ContractDialog
