#include "ContractDialog.h"

namespace ContractDialog {

void Define() {}

HWND MakeOwner() {
    return CreateWindowExW(0, L"STATIC", L"Owner", WS_POPUP | WS_VISIBLE, 0, 0, 100, 100, nullptr, nullptr,
                           nullptr, nullptr);
}

}  // namespace ContractDialog
