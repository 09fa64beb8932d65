#include <map>

#include "TestWindows.h"

namespace TestWindows {

namespace {

std::map<HWND, int> moves;

LRESULT CALLBACK CountMoves(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_WINDOWPOSCHANGING)
        ++moves[window];
    return DefWindowProcW(window, message, wParam, lParam);
}

// Makes a window of a class that has this procedure.
HWND Make(const wchar_t* className, WNDPROC procedure, DWORD style, const RECT& rect, HWND parent) {
    WNDCLASSW definition = {};
    definition.lpfnWndProc = DefWindowProcW;
    definition.hInstance = GetModuleHandleW(nullptr);
    definition.lpszClassName = className;
    RegisterClassW(&definition);  // fails from the second time on
    const HWND window =
        CreateWindowExW(0, className, L"", style, rect.left, rect.top, rect.right - rect.left,
                        rect.bottom - rect.top, parent, nullptr, definition.hInstance, nullptr);
    SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure));
    return window;
}

}  // namespace

void DefineDialog() {}

HWND MakeWindow(WNDPROC procedure) {
    return Make(L"TestWindow", procedure != nullptr ? procedure : DefWindowProcW, WS_POPUP | WS_VISIBLE,
                {0, 0, 640, 480}, nullptr);
}

HWND MakeChild(HWND parent, const RECT& rect) {
    return Make(L"TestChild", CountMoves, WS_CHILD | WS_VISIBLE, rect, parent);
}

int Moves(HWND child) {
    return moves[child];
}

}  // namespace TestWindows
