#include "support/ui/Input.h"

#include <algorithm>
#include <array>

namespace Ui {

namespace {

// The keyboard as GetKeyState sees it, with some keys held down for the length of a scope.
class HeldKeys {
public:
    explicit HeldKeys(std::initializer_list<WORD> keys) {
        GetKeyboardState(before_.data());
        std::array<BYTE, 256> state = before_;
        for (const WORD key : keys)
            state[key] = 0x80;
        SetKeyboardState(state.data());
    }
    HeldKeys(const HeldKeys&) = delete;
    HeldKeys& operator=(const HeldKeys&) = delete;
    ~HeldKeys() { SetKeyboardState(before_.data()); }

private:
    std::array<BYTE, 256> before_ = {};
};

void PostKey(WORD key, bool isSystemKey) {
    // Repeat count 1, the scan code, the context bit of Alt, and for the release "was down" and "goes up".
    const LPARAM scanCode = static_cast<LPARAM>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC)) << 16;
    const LPARAM down = 1 | scanCode | (isSystemKey ? 1 << 29 : 0);
    const LPARAM up = down | static_cast<LPARAM>(3U << 30);
    const HWND focus = GetFocus();
    PostMessageW(focus, isSystemKey ? WM_SYSKEYDOWN : WM_KEYDOWN, key, down);
    PostMessageW(focus, isSystemKey ? WM_SYSKEYUP : WM_KEYUP, key, up);
}

bool TakesInput(HWND window) {
    if (!IsWindowVisible(window))
        return false;
    for (; window != nullptr && window != GetDesktopWindow(); window = GetAncestor(window, GA_PARENT))
        if (!IsWindowEnabled(window))
            return false;
    return true;
}

}  // namespace

void Click(HWND control) {
    RECT client = {};
    GetClientRect(control, &client);
    Click(control, {client.right / 2, client.bottom / 2});
}

void Click(HWND control, POINT point) {
    if (!TakesInput(control))
        return;
    const LPARAM place = MAKELPARAM(point.x, point.y);
    SendMessageW(control, WM_LBUTTONDOWN, MK_LBUTTON, place);
    SendMessageW(control, WM_LBUTTONUP, 0, place);
}

void TypeKeys(MessagePump& pump, std::initializer_list<WORD> keys, std::initializer_list<WORD> held) {
    const bool isSystemKey = std::find(held.begin(), held.end(), VK_MENU) != held.end();
    for (const WORD key : keys) {
        const HeldKeys holding(held);
        PostKey(key, isSystemKey);
        pump.RunUntilIdle();
    }
}

void TypeText(MessagePump& pump, const std::wstring& text) {
    for (const wchar_t unit : text) {
        PostMessageW(GetFocus(), WM_CHAR, unit, 1);
        pump.RunUntilIdle();
    }
}

}  // namespace Ui
