#include "support/ui/SeenDialog.h"

#include "winlib/WindowText.h"

namespace Ui {

namespace {

std::wstring ClassOf(HWND window) {
    wchar_t name[256] = {};
    GetClassNameW(window, name, 256);
    return name;
}

BOOL CALLBACK AppendWindow(HWND window, LPARAM list) {
    reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
    return TRUE;
}

}  // namespace

SeenDialog ReadDialog(HWND dialog) {
    SeenDialog seen = {WinLib::GetWindowText(dialog), L"", GetWindow(dialog, GW_OWNER)};
    std::vector<HWND> children;
    EnumChildWindows(dialog, AppendWindow, reinterpret_cast<LPARAM>(&children));
    for (const HWND child : children)
        if (ClassOf(child) == L"Static")
            seen.text += WinLib::GetWindowText(child);
    return seen;
}

bool IsDialog(HWND window) {
    return ClassOf(window) == L"#32770";
}

void PressButton(HWND dialog, WORD button) {
    PostMessageW(dialog, WM_COMMAND, MAKEWPARAM(button, BN_CLICKED),
                 reinterpret_cast<LPARAM>(GetDlgItem(dialog, button)));
}

std::vector<HWND> TopLevelWindows() {
    std::vector<HWND> windows;
    EnumWindows(AppendWindow, reinterpret_cast<LPARAM>(&windows));
    return windows;
}

}  // namespace Ui
