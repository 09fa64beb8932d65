// The keyboard focus in dialogs. Windows leaves it with a window that is hidden and takes it from one that is
// disabled or destroyed without giving it to another, so that keys are lost. So the focus must be moved
// before a control goes away.
#pragma once

#include "winlib/Windows.h"

namespace WinLib {

// Gives a dialog's control the focus. By the dialog's own means, which SetFocus is not: they also move the
// border of the default button.
void MoveFocus(HWND control);

// Enables or disables a dialog's control. One that has the focus gives it to next before it is disabled,
// which must be visible and enabled.
void EnableControl(HWND control, bool enable, HWND next);

}  // namespace WinLib
