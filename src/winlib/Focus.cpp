#include "winlib/Focus.h"

namespace WinLib {

void MoveFocus(HWND control) {
    SendMessageW(GetParent(control), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control), TRUE);
}

void EnableControl(HWND control, bool enable, HWND next) {
    if (!enable && GetFocus() == control)
        MoveFocus(next);
    EnableWindow(control, enable);
}

}  // namespace WinLib
