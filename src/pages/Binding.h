// A control that shows one field of a preset and stores it at every action of the user: what the
// check boxes, radio buttons and text fields of all pages have in common. Each page lists its own in a table.
#pragma once

#include <string>

#include "settings/Preset.h"
#include "winlib/WindowText.h"
#include "winlib/Windows.h"

struct Binding {
    int id;
    WORD code;  // the notification by which the control tells of the user's action
    void (*show)(HWND control, const Preset& preset);
    void (*store)(HWND control, Preset& preset);
};

inline bool IsTicked(HWND button) {
    return SendMessageW(button, BM_GETCHECK, 0, 0) == BST_CHECKED;
}

// Buttons start unticked, so that only a tick needs to be shown.
inline void Tick(HWND button) {
    SendMessageW(button, BM_SETCHECK, BST_CHECKED, 0);
}

// A check box for a bool.
template <auto Field>
constexpr Binding CheckBox(int id) {
    return {id, BN_CLICKED,
            [](HWND control, const Preset& preset) {
                if (preset.Get(Field))
                    Tick(control);
            },
            [](HWND control, Preset& preset) { preset.Get(Field) = IsTicked(control); }};
}

// A radio button for one value of an enumeration. The button that names the other buttons' values stands for
// every value but those.
template <auto Field, auto Value, decltype(Value)... Others>
constexpr Binding RadioButton(int id) {
    return {id, BN_CLICKED,
            [](HWND control, const Preset& preset) {
                const auto value = preset.Get(Field);
                if (sizeof...(Others) == 0 ? value == Value : ((value != Others) && ...))
                    Tick(control);
            },
            [](HWND, Preset& preset) { preset.Get(Field) = Value; }};
}

// By value: the edit control sends EN_CHANGE as for typing, so that showing the text stores it at once.
inline void ShowText(HWND control, std::wstring text) {
    SetWindowTextW(control, text.c_str());
}

// An edit control for a text.
template <auto Field>
constexpr Binding TextField(int id) {
    return {id, EN_CHANGE,
            [](HWND control, const Preset& preset) { ShowText(control, preset.Get(Field)); },
            [](HWND control, Preset& preset) { preset.Get(Field) = WinLib::GetWindowText(control); }};
}
