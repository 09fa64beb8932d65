#include "FakeWindows.h"
#include "TestWindows.h"

namespace TestWindows {

void DefineDialog() {
    FakeWin::DefineDialog(DialogId, {.caption = L"Test",
                                     .size = {200, 100},
                                     .controls = {{IDOK, L"BUTTON", L"OK", {0, 0, 50, 20}},
                                                  {IDCANCEL, L"BUTTON", L"Cancel", {50, 0, 100, 20}},
                                                  {ButtonId, L"BUTTON", L"Other", {100, 0, 150, 20}}}});
}

HWND MakeWindow(WNDPROC procedure) {
    return procedure != nullptr ? FakeWin::CreatePlainWindow(procedure) : FakeWin::CreatePlainWindow();
}

HWND MakeChild(HWND parent, const RECT& rect) {
    return FakeWin::CreateChildWindow(parent, ButtonId, L"STATIC", rect);
}

int Moves(HWND child) {
    return FakeWin::Moves(child);
}

}  // namespace TestWindows
