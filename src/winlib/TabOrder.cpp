#include "winlib/TabOrder.h"

namespace WinLib {

void PutLast(HWND dialog, std::initializer_list<int> ids) {
    for (const int id : ids)
        SetWindowPos(GetDlgItem(dialog, id), HWND_BOTTOM, 0, 0, 0, 0,
                     SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

}  // namespace WinLib
