// Binds a control to a field of a preset: the control shows the field, and each action of the user stores it.
// Used for the check boxes, radio buttons and text fields of all pages; each page has a table of them.
#pragma once

#include <string>

#include "settings/Preset.h"
#include "winlib/WindowText.h"
#include "winlib/Windows.h"

struct Binding {
    int id;
    WORD code;  // the notification that the control sends for an action of the user
    void (*show)(HWND control, const Preset& preset);
    void (*store)(HWND control, Preset& preset);
};

inline bool IsChecked(HWND button) {
    return SendMessageW(button, BM_GETCHECK, 0, 0) == BST_CHECKED;
}

// Buttons start unchecked, so that only the checked state is set.
inline void Check(HWND button) {
    SendMessageW(button, BM_SETCHECK, BST_CHECKED, 0);
}

// A check box for a bool.
template <auto Field>
constexpr Binding CheckBox(int id) {
    return {id, BN_CLICKED,
            [](HWND control, const Preset& preset) {
                if (preset.Get(Field))
                    Check(control);
            },
            [](HWND control, Preset& preset) { preset.Get(Field) = IsChecked(control); }};
}

// A radio button for a value of an enumeration. A button with the values of the other buttons is checked for
// any value but those.
template <auto Field, auto Value, decltype(Value)... Others>
constexpr Binding RadioButton(int id) {
    return {id, BN_CLICKED,
            [](HWND control, const Preset& preset) {
                const auto value = preset.Get(Field);
                if (sizeof...(Others) == 0 ? value == Value : ((value != Others) && ...))
                    Check(control);
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
    return {id, EN_CHANGE, [](HWND control, const Preset& preset) { ShowText(control, preset.Get(Field)); },
            [](HWND control, Preset& preset) { preset.Get(Field) = WinLib::GetWindowText(control); }};
}
