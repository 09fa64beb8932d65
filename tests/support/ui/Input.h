// What a person does to the windows of a test: clicks and keys. Goes through the messages that the mouse and
// the keyboard give, so that disabled controls, default buttons and the tab order behave as they do for a
// person.
#pragma once

#include <initializer_list>
#include <string>

#include "support/ui/MessagePump.h"

namespace Ui {

// Presses and releases the left button in the middle of the control, or at a point of its client area.
// Nothing happens if the control is hidden or disabled, or in a window that is.
void Click(HWND control);
void Click(HWND control, POINT point);

// Presses and releases one virtual key after the other in the window that has the focus, while all of held
// (VK_SHIFT, VK_CONTROL, VK_MENU) are down, and lets the pump handle each before the next.
void TypeKeys(MessagePump& pump, std::initializer_list<WORD> keys, std::initializer_list<WORD> held = {});

// Types characters in the window that has the focus.
void TypeText(MessagePump& pump, const std::wstring& text);

}  // namespace Ui
