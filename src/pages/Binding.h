// A control that shows one field of a preset's section and stores it at every action of the user: what the
// check boxes, radio buttons and text fields of all pages have in common. Each page lists its own in a table.
#pragma once

#include <string>

#include "settings/metatypes/Settings.h"
#include "winlib/WindowText.h"
#include "winlib/Windows.h"

struct Binding {
    int id;
    WORD code;  // the notification by which the control tells of the user's action
    void (*show)(HWND control, const MetaTypes::Settings& section);
    void (*store)(HWND control, MetaTypes::Settings& section);
};

inline bool IsTicked(HWND button) {
    return SendMessageW(button, BM_GETCHECK, 0, 0) == BST_CHECKED;
}

// Buttons start unticked, so that only a tick needs to be shown.
inline void Tick(HWND button) {
    SendMessageW(button, BM_SETCHECK, BST_CHECKED, 0);
}

// A check box for a bool.
template <uint32_t Row>
constexpr Binding CheckBox(int id) {
    return {id, BN_CLICKED,
            [](HWND control, const MetaTypes::Settings& section) {
                if (section.Get<bool>(Row))
                    Tick(control);
            },
            [](HWND control, MetaTypes::Settings& section) { section.Get<bool>(Row) = IsTicked(control); }};
}

// A radio button for one value of an enumeration. The button that names the other buttons' values stands for
// every value but those.
template <uint32_t Row, auto Value, decltype(Value)... Others>
constexpr Binding RadioButton(int id) {
    return {id, BN_CLICKED,
            [](HWND control, const MetaTypes::Settings& section) {
                const auto value = section.Get<decltype(Value)>(Row);
                if (sizeof...(Others) == 0 ? value == Value : ((value != Others) && ...))
                    Tick(control);
            },
            [](HWND, MetaTypes::Settings& section) { section.Get<decltype(Value)>(Row) = Value; }};
}

// An edit control for a text. Showing the text stores it too, since the control tells of that like of a key.
template <uint32_t Row>
constexpr Binding TextField(int id) {
    return {id, EN_CHANGE,
            [](HWND control, const MetaTypes::Settings& section) {
                const std::wstring text = section.Get<std::wstring>(Row);
                SetWindowTextW(control, text.c_str());
            },
            [](HWND control, MetaTypes::Settings& section) {
                section.Get<std::wstring>(Row) = WinLib::GetWindowText(control);
            }};
}
